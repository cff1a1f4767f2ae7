#!/usr/bin/env python3
"""End to end: lines and titles drawn by hand in a real window.

usage: drawing.py MERIDUNE TEST
"""
import os
import subprocess
import sys
import tempfile

import numpy

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from window import Window, until, write_shots  # noqa: E402


def red(picture):
    """Where the picture is more red than not: edges are mixed with what they stand on."""
    return (picture[:, :, 0] > 120) & (picture[:, :, 1] < picture[:, :, 0] // 2) & (picture[:, :, 2] < picture[:, :, 0] // 2)


def reds_along(picture, start, end, n=40):
    """Of n points between start and end, the fraction that have red within a pixel."""
    hits = red(picture)
    points = [(round(start[0] + (end[0] - start[0]) * k / n), round(start[1] + (end[1] - start[1]) * k / n)) for k in range(1, n)]
    return numpy.mean([hits[y - 1:y + 2, x - 1:x + 2].any() for x, y in points])


def visible(title):
    found = subprocess.run(['xdotool', 'search', '--onlyvisible', '--name', title], check=False, capture_output=True, text=True)
    return bool(found.stdout.split())


def gone(title):
    return until(lambda: not visible(title))


def open_drawing(window, key='space'):
    """Opens the dialog below what is drawn on, and checks its box, which has the focus."""
    window.key('ctrl+w')
    window.dialog('Draw on Canvas')
    dialog = window.xdotool('search', '--onlyvisible', '--name', 'Draw on Canvas').split()[-1]
    window.xdotool('windowmove', '--sync', dialog, 700, 480)
    before = window.settled()
    window.key(key)
    window.changed(before)


def a_line_is_drawn_where_the_mouse_goes(program, path):
    """The line is red along the drag, stays through the next shot, is exported, and Escape gives the mouse back."""
    with Window(program, [path]) as window:
        left, top, _, _ = window.canvas(window.settled())
        start, end = (left + 60, top + 60), (left + 460, top + 260)
        assert not red(window.picture())[top:top + 300, left:left + 500].any()
        open_drawing(window)
        window.xdotool('mousemove', start[0], start[1], 'mousedown', 1)
        for k in range(0, 41):
            window.xdotool('mousemove', start[0] + 10 * k, start[1] + 5 * k)
        window.xdotool('mouseup', 1)
        for _ in range(50):  # a busy machine paints the end of the drag late
            drawn = window.settled()
            if reds_along(drawn, start, end) == 1.0:
                break
        assert reds_along(drawn, start, end) == 1.0, reds_along(drawn, start, end)
        hits = red(drawn)[top:top + 300, left:left + 520]
        assert hits.sum() < 400 * 8, f'{hits.sum()} red pixels are more than a line'

        window.key('Escape')  # the main window is in front, the keyboard is the dialog's
        assert gone('Draw on Canvas'), 'Escape did not end drawing'
        window.leave()
        window.click(*window.find_colour((46, 125, 50))[-1])  # the next shot
        window.xdotool('mousemove', 600, 20)
        assert reds_along(window.settled(), start, end) == 1.0, 'the next shot has lost the line'

        with tempfile.TemporaryDirectory() as folder:
            target = os.path.join(folder, 'drawn.png')
            window.save_as('ctrl+i', 'Image Export File Name', target)
            ppm = subprocess.run(['convert', target, '-depth', '8', 'ppm:-'], check=True, capture_output=True).stdout
            fields = ppm.split(maxsplit=4)
            width, height = int(fields[1]), int(fields[2])
            exported = numpy.frombuffer(ppm[-3 * width * height:], numpy.uint8).reshape(height, width, 3).astype(int)
            assert red(exported).sum() > 400, 'the exported picture has no line'

        window.leave()
        before = window.settled()
        window.drag(left + 100, top + 300, left + 300, top + 400)
        window.xdotool('mousemove', 600, 20)
        after = window.settled()
        assert (before != after).any(axis=2).mean() > 0.005, 'the mouse does not zoom after drawing'
        window.key('ctrl+e')
        assert window.process.wait(10) == 0


def a_text_is_typed_and_placed(program, path):
    """What is typed while the main window is in front goes to the text, and stands where the mouse put it."""
    with Window(program, [path]) as window:
        left, top, _, _ = window.canvas(window.settled())
        at = (left + 300, top + 200)
        open_drawing(window, 'Tab')  # to the methods
        window.key('Right')          # Draw Text
        before = window.settled()
        window.key('shift+Tab', 'space')
        window.changed(before)
        window.xdotool('mousemove', left + 100, top + 100, 'mousedown', 1, 'mousemove', at[0] - 5, at[1])
        window.xdotool('mousemove', at[0], at[1], 'mouseup', 1)
        window.type_text('MULTIPLE')
        window.xdotool('mousemove', 600, 20)
        for _ in range(20):  # a busy machine paints late
            hits = red(window.settled())
            near = hits[at[1] - 10:at[1] + 10, at[0] - 60:at[0] + 60]
            if near.sum() > 40:
                break
        assert near.sum() > 40, near.sum()
        assert hits[top:top + 300, left:left + 600].sum() == near.sum(), 'there is red elsewhere'
        columns = numpy.flatnonzero(near.any(axis=0))
        assert abs(columns.mean() - 60) < 6, f'the text is not in the middle of its place: {columns.mean()}'
        window.key('Escape')
        assert gone('Draw on Canvas')


def other_windows_can_be_used_while_drawing(program, path):
    """The parameter menu takes keys while drawing is on; the next press on the canvas gives them to the drawing again."""
    with Window(program, [path]) as window:
        left, top, _, _ = window.canvas(window.settled())
        open_drawing(window)
        window.drag(left + 60, top + 60, left + 300, top + 200)
        before = window.settled()
        window.click(25, 60)  # a menu has the keys while it is open
        window.changed(before)
        window.key('Escape')
        window.click(112, 60)
        window.key('Down', 'Return')  # the first of Tools
        window.dialog('Parameter Menu')
        window.key('Tab')
        window.type_text('Color')
        window.settled()
        window.key('Escape')
        assert gone('Parameter Menu'), 'the menu has no keyboard'
        coloured = window.settled()
        inside = coloured[top + 300:top + 400, left + 10:left + 500]
        assert ((inside[:, :, 2] == 255) & (inside[:, :, 0] < 250)).mean() > 0.3, 'the colours were not chosen'
        assert visible('Draw on Canvas')
        window.xdotool('mousemove', left + 300, top + 200, 'mousedown', 1, 'mousemove', left + 350, top + 100, 'mouseup', 1)
        window.settled()
        window.key('Escape')
        assert gone('Draw on Canvas'), 'the press on the canvas did not take the keyboard'


def titles_are_typed_into_the_window(program, path):
    """The title stands in the status bar, in red; the title of the axis changes while it is typed."""
    with Window(program, [path]) as window:
        before = window.settled()
        window.key('ctrl+t')
        window.dialog('Titles')
        window.key('space', 'Tab')
        window.type_text('A title in the bar')
        window.key('Escape')
        assert gone('Titles')
        window.leave()
        after = window.settled()
        bar = red(after)[815:860, 10:1210]
        assert bar.sum() > 60 and not red(before)[815:860, 10:1210].any(), bar.sum()
        assert numpy.flatnonzero(bar.any(axis=0)).min() > 900, 'the title leaves no room for the read-out'


TESTS = [a_line_is_drawn_where_the_mouse_goes, a_text_is_typed_and_placed, other_windows_can_be_used_while_drawing,
         titles_are_typed_into_the_window]

if __name__ == '__main__':
    program, wanted = sys.argv[1:]
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, 'flat.sgy')
        write_shots(path, [numpy.full((12, 250), -1.0)] * 2)
        {test.__name__: test for test in TESTS}[wanted](program, path)
