#!/usr/bin/env python3
"""End to end: pictures are stored while paging, and come back to the screen as they were.

usage: movie.py MERIDUNE TEST
"""
import os
import re
import subprocess
import sys
import tempfile
import time

import numpy

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from window import Window, write_shots  # noqa: E402

GREEN = (46, 125, 50)  # of the arrows


def real_file():
    data = os.environ.get('MERIDUNE_TEST_DATA') or os.path.join(os.path.dirname(__file__), '../../../shared/data')
    path = os.path.join(data, 'prestack-marine', 'viking_small.segy')
    if not os.path.exists(path):
        print(f'SKIP   : data no real data files in {data}')
        return None
    return path


class Movie:
    """A window whose tab "Image" stands beside it, with the pictures of its first shots stored."""

    def __init__(self, window, n_shots):
        self.window = window
        window.xdotool('mousemove', 600, 20)
        self.box = window.canvas(window.settled())
        window.key('ctrl+u')
        window.put_aside('Parameter Menu')
        window.key('Right', 'Right')  # from the tab "Display" to "Image"
        window.key('Tab', 'space')    # the box of the store
        self.live = [self.inside()]
        for _ in range(n_shots - 1):
            before = window.settled()
            window.click(*window.find_colour(GREEN)[-1])
            window.changed(before)
            self.live.append(self.inside())

    def inside(self):
        """The canvas, once it has come to rest."""
        self.window.xdotool('mousemove', 600, 20)
        return self.cut(self.window.settled())

    def cut(self, picture, left=0, top=0):
        box = self.box
        return picture[box[1] - top:box[3] - top, box[0] - left:box[2] - left]

    def show(self):
        """Pictures in place of the data; the keys then go to the slider."""
        self.window.dialog('Parameter Menu')  # the focus is still at the store's box
        self.window.key('Tab', 'Tab', 'Tab', 'Tab', 'Tab', 'space', 'Tab')
        return self.inside()

    def has_picture_window(self):
        """Whether a window of the canvas's size lies on it: the pictures take the way through the X server."""
        tree = subprocess.run(['xwininfo', '-tree', '-id', self.window.id], check=True, capture_output=True, text=True).stdout
        width, height = self.box[2] - self.box[0], self.box[3] - self.box[1]
        for child in re.findall(r'^ +(0x[0-9a-f]+) .* (\d+)x(\d+)\+', tree, re.M):
            if abs(int(child[1]) - width) < 8 and abs(int(child[2]) - height) < 8:
                state = subprocess.run(['xwininfo', '-id', child[0]], check=True, capture_output=True, text=True).stdout
                return 'IsViewable' in state
        return False


def same(a, b):
    return numpy.array_equal(a, b)


def stored_pictures_come_back(program, _):
    path = real_file()
    if not path:
        return
    with Window(program, [path]) as window:
        movie = Movie(window, 3)
        window.wait_for_line('MERIDUNE: Image Storage statistics')
        assert not any(same(movie.live[i], movie.live[j]) for i, j in ((0, 1), (1, 2), (0, 2))), 'the shots look alike'
        assert not movie.has_picture_window()
        assert same(movie.show(), movie.live[0]), 'the first picture is not the first shot'
        assert movie.has_picture_window(), 'the picture came another way than through the X server'
        for key, i in (('Right', 1), ('Right', 2), ('Left', 1)):
            window.key(key)
            assert same(movie.inside(), movie.live[i]), f'picture {i + 1} is not shot {i + 1}'

        # What lay over the canvas and goes away leaves the picture whole.
        before = window.settled()
        window.xdotool('windowmove', '--sync', window.xdotool('search', '--name', 'Parameter Menu').split()[-1], 300, 300)
        window.changed(before)
        window.put_aside('Parameter Menu')
        assert same(movie.inside(), movie.live[1]), 'uncovered, the picture has holes'

        window.key('shift+Tab', 'space')  # the data again
        assert same(movie.inside(), movie.live[2]), 'the data did not come back'
        assert not movie.has_picture_window()


def the_mouse_changes_the_picture(program, _):
    path = real_file()
    if not path:
        return
    with Window(program, [path]) as window:
        movie = Movie(window, 3)
        movie.show()
        x, y = movie.box[0] + 200, movie.box[1] + 200
        window.click(x, y, 4)  # a notch up
        assert same(movie.inside(), movie.live[1]), 'the wheel did not show the second picture'
        window.click(x, y, 4)
        assert same(movie.inside(), movie.live[2]), 'the wheel did not show the third picture'
        window.click(x, y, 5)
        assert same(movie.inside(), movie.live[1]), 'the wheel did not go back'
        window.drag(x, y, x - 100, y, 2)
        assert same(movie.inside(), movie.live[0]), 'a drag to the left did not end at the first picture'
        window.drag(x, y, x + 100, y, 2)
        assert same(movie.inside(), movie.live[2]), 'a drag to the right did not end at the last picture'
        # With control the middle button pans; all data are in view, so nothing moves, and the picture stays.
        window.xdotool('keydown', 'ctrl')
        window.drag(x, y, x + 60, y + 40, 2)
        window.xdotool('keyup', 'ctrl')
        assert same(movie.inside(), movie.live[2]), 'a pan to nowhere changed the picture'
        window.click(x, y, 5)
        assert same(movie.inside(), movie.live[1]), 'after a pan the wheel shows another picture'


def the_picture_moves_with_its_canvas(program, _):
    """The tool bar goes from above the plot to below it, so that the canvas only moves."""
    path = real_file()
    if not path:
        return
    with Window(program, [path]) as window:
        movie = Movie(window, 2)
        movie.show()
        arrows = window.find_colour(GREEN)
        left, bottom = 18, 800  # the handle of the tool bar, and the place above the status bar
        window.xdotool('mousemove', left, arrows[0][1], 'mousedown', 1)
        for x, y in ((60, 300), (200, 600), (100, bottom - 20), (90, bottom), (90, bottom + 3)):
            window.xdotool('mousemove', x, y)
            window.settled()
        window.xdotool('mouseup', 1)
        window.xdotool('mousemove', 600, 20)
        before, now = movie.box, window.canvas(window.settled())
        assert before[1] - now[1] > 20, f'the canvas has not moved: from {before} to {now}'
        assert now[3] - now[1] == before[3] - before[1], 'the canvas has another height'
        movie.box = now
        assert movie.has_picture_window()
        assert same(movie.inside(), movie.live[0]), 'the picture stayed behind'


def an_export_holds_the_picture(program, _):
    path = real_file()
    if not path:
        return
    with tempfile.TemporaryDirectory() as folder, Window(program, [path]) as window:
        movie = Movie(window, 2)
        movie.show()
        window.leave()
        target = os.path.join(folder, 'movie.png')
        window.save_as('ctrl+i', 'Export File Name', target)
        place = dict(re.findall(r'Absolute upper-left ([XY]): +(-?\d+)',
                                subprocess.run(['xwininfo', '-id', window.id], check=True, capture_output=True, text=True).stdout))
        exported = movie.cut(window.pixels('convert', target), int(place['X']), int(place['Y']))
        assert same(exported, movie.live[0]), 'the exported window does not hold the picture'
        assert same(movie.inside(), movie.live[0]), 'the export has changed the screen'


def the_movie_plays_and_stops(program, _):
    """Shots with a block at another time each: the screen shows all of them in turn."""
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, 'blocks.sgy')
        shots = []
        for k in range(4):
            shot = numpy.full((12, 250), -1.0)
            shot[:, 50 * k + 20:50 * k + 60] = 1.0
            shots.append(shot)
        write_shots(path, shots)
        with Window(program, [path]) as window:
            movie = Movie(window, 4)
            movie.show()
            window.key('Tab', 'Tab', 'space')  # over the delay to "Play"
            seen = set()
            end = time.monotonic() + 20
            while len(seen) < 4 and time.monotonic() < end:
                now = movie.cut(window.picture())
                seen |= {k for k in range(4) if same(now, movie.live[k])}
            assert seen == {0, 1, 2, 3}, f'only {sorted(seen)} were on the screen'
            window.key('Tab', 'space')  # "Stop"
            rest = movie.inside()
            time.sleep(1)
            assert same(rest, movie.inside()), 'the movie goes on'
            assert any(same(rest, shot) for shot in movie.live)


TESTS = [stored_pictures_come_back, the_mouse_changes_the_picture, the_picture_moves_with_its_canvas,
         an_export_holds_the_picture, the_movie_plays_and_stops]

if __name__ == '__main__':
    program, wanted = sys.argv[1:]
    {test.__name__: test for test in TESTS}[wanted](program, None)
