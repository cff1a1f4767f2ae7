#!/usr/bin/env python3
"""End to end: the program shows what the file holds, pages, zooms, and leaves.

usage: firstslice.py MERIDUNE TEST
"""
import os
import subprocess
import sys
import tempfile
import time

import numpy

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from window import Window, write_shots  # noqa: E402

TRACES, SAMPLES = 12, 250
GREEN = (46, 125, 50)  # of the arrows


def blocks(first_sample, odd):
    """Traces that are 1 for 50 samples from first_sample on every second trace, and -1 elsewhere."""
    shot = numpy.full((TRACES, SAMPLES), -1.0)
    shot[odd::2, first_sample:first_sample + 50] = 1.0
    return shot


def check_blocks(window, picture, first_sample, odd):
    """The positive blocks are filled to the right of their traces' axes, and nothing else is."""
    left, top, right, bottom = window.canvas(picture)
    width, height = right - left + 1, bottom - top + 1
    per_trace = width / (TRACES + 1)
    dark = picture[top:bottom + 1, left:right + 1].max(axis=2) < 128
    for i in range(TRACES):
        column = int((i + 1) * per_trace + 0.25 * per_trace)
        for middle, expected in ((first_sample + 25, i % 2 == odd), (first_sample - 25, False), (first_sample + 75, False)):
            row = int(middle / SAMPLES * height)
            cell = dark[row - 10:row + 10, column - 5:column + 5].mean()
            assert (cell > 0.95) if expected else (cell < 0.05), (
                f'trace {i + 1}, sample {middle}: {cell:.2f} of the pixels are dark, expected {expected}')


def shows_what_the_samples_say(program, path, environment=None):
    with Window(program, [path], environment) as window:
        check_blocks(window, window.settled(), 50, 0)


def next_shows_the_next_shot(program, path):
    with Window(program, [path]) as window:
        arrows = window.find_colour(GREEN)
        window.settled()
        window.click(*arrows[-1])
        time.sleep(0.3)
        window.xdotool('mousemove', 600, 20)
        check_blocks(window, window.settled(), 150, 1)


def zoom_and_back_gives_the_same_picture(program, path):
    with Window(program, [path]) as window:
        before = window.settled()
        left, top, right, bottom = window.canvas(before)
        window.drag(left + 100, top + 50, left + 300, top + 250)
        window.xdotool('mousemove', 600, 20)
        zoomed = window.settled()
        inside = (slice(top, bottom), slice(left, right))
        assert (zoomed[inside] != before[inside]).any(axis=2).mean() > 0.05, 'the zoom changed nothing'
        window.click(left + 200, top + 200, 3)
        window.xdotool('mousemove', 600, 20)
        after = window.settled()
        assert numpy.array_equal(after[inside], before[inside]), 'back from the zoom the picture is another one'


def exit_key_leaves_with_status_0(program, path):
    with Window(program, [path]) as window:
        window.key('ctrl+e')
        status = window.process.wait(10)
        assert status == 0, f'ended with {status}'


def a_locale_with_decimal_commas_changes_nothing(program, path):
    with tempfile.TemporaryDirectory() as folder:
        made = subprocess.run(['localedef', '-i', 'de_DE', '-f', 'UTF-8', os.path.join(folder, 'de_DE.UTF-8')],
                              capture_output=True, check=False)
        if not os.path.exists(os.path.join(folder, 'de_DE.UTF-8')):
            print(f'SKIP   : locale the Debian package locales is missing: {made.stderr.decode()[:80]}')
            return
        environment = {'LOCPATH': folder, 'LC_ALL': 'de_DE.UTF-8'}
        shows_what_the_samples_say(program, path, environment)


TESTS = [shows_what_the_samples_say, next_shows_the_next_shot, zoom_and_back_gives_the_same_picture,
         exit_key_leaves_with_status_0, a_locale_with_decimal_commas_changes_nothing]

if __name__ == '__main__':
    program, wanted = sys.argv[1:]
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, 'blocks.sgy')
        write_shots(path, [blocks(50, 0), blocks(150, 1)])
        {test.__name__: test for test in TESTS}[wanted](program, path)
