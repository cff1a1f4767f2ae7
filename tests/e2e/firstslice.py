#!/usr/bin/env python3
"""End to end: the program shows what the file holds, pages, zooms, and leaves.

usage: firstslice.py MERIDUNE TEST
"""
import os
import subprocess
import sys
import tempfile

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


def check_blocks(window, picture, first_sample, odd, traces=TRACES):
    """The positive blocks are filled to the right of their traces' axes, and nothing else is."""
    left, top, right, bottom = window.canvas(picture)
    width, height = right - left + 1, bottom - top + 1
    per_trace = width / (traces + 1)
    dark = picture[top:bottom + 1, left:right + 1].max(axis=2) < 128
    for i in range(traces):
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
        before = window.settled()
        window.click(*arrows[-1])
        window.changed(before)
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


def ibm_to_float(words):
    """Big-endian IBM floats as numpy floats."""
    words = words.astype('>u4').astype(numpy.uint64)
    sign = numpy.where(words >> 31, -1.0, 1.0)
    exponent = ((words >> 24) & 0x7f).astype(int) - 64
    return sign * (words & 0xffffff).astype(float) / 2.0**24 * 16.0**exponent


def a_real_shot_looks_like_its_samples(program, _):
    """Each pixel beside a trace of a marine shot is black or white as the sample under it is positive or not."""
    data = os.environ.get('MERIDUNE_TEST_DATA') or os.path.join(os.path.dirname(__file__), '../../../shared/data')
    path = os.path.join(data, 'prestack-marine', 'viking_small.segy')
    if not os.path.exists(path):
        print(f'SKIP   : data no real data files in {data}')
        return
    n_traces, n_samples = 120, 600
    record = numpy.dtype([('header', 'u1', 240), ('samples', '>u4', n_samples)])
    shot = ibm_to_float(numpy.fromfile(path, record, n_traces, offset=3600)['samples'])
    shot = shot / (2.0 * numpy.abs(shot).mean(axis=1, keepdims=True))  # in trace widths

    with Window(program, [path]) as window:
        window.xdotool('mousemove', 600, 20)
        picture = window.settled()
        left, top, right, bottom = window.canvas(picture)
    dark = picture[top:bottom + 1, left:right + 1].max(axis=2) < 128
    height, width = dark.shape
    rows = numpy.arange(height)
    below = numpy.clip((rows * n_samples / height).astype(int), 1, n_samples - 3)
    axes = ((numpy.arange(n_traces) + 1) * width / (n_traces + 1)).astype(int)
    beside = dark[:, axes + 2].T            # [trace, row]: two pixels right of the axis
    # A row lies between two samples: it is sure of its colour where both, and their neighbours, agree.
    around = numpy.stack([shot[:, below + k] for k in (-1, 0, 1, 2)])
    loud = around.min(axis=0) > 0.6         # fills more than half a trace width
    # White wants that neither the trace nor the two on either side reach the place with fill or line.
    quiet = around.max(axis=0) < -0.3
    quiet[1:] &= around.max(axis=0)[:-1] < 0.5
    quiet[2:] &= around.max(axis=0)[:-2] < 1.5
    quiet[:-1] &= around.min(axis=0)[1:] > -0.5
    quiet[:-2] &= around.min(axis=0)[2:] > -1.5
    assert loud.sum() > 1000 and quiet.sum() > 100, (loud.sum(), quiet.sum())
    assert beside[loud].mean() > 0.97, f'only {beside[loud].mean():.3f} of the loud places are black'
    assert beside[quiet].mean() < 0.1, f'{beside[quiet].mean():.3f} of the quiet places are black'


GATHERS, FOLD = 3, 10


def gather_shots():
    """FOLD shots of GATHERS traces, so that the gather of CDP c has its blocks at sample 50 c."""
    shots = []
    for shot in range(FOLD):
        traces = numpy.full((GATHERS, SAMPLES), -1.0)
        for c in range(GATHERS):
            if shot % 2 == 0:
                traces[c, 50 * (c + 1):50 * (c + 1) + 50] = 1.0
        shots.append(traces)
    return shots


def check_gather(window, cdp):
    window.xdotool('mousemove', 600, 20)
    check_blocks(window, window.settled(), 50 * cdp, 0, FOLD)


def sort_by_cdp(window):
    window.key('ctrl+l')
    window.dialog('SEGY Menu')
    window.key('Tab', 'Tab')  # from the file over Browse to the sort
    window.type_text('CDP')
    for _ in range(8):  # type, format, traces, samples, rate, length, two scalars
        window.key('Tab')
    window.key('Tab')
    window.type_text('Yes')
    before = window.settled()
    window.key('alt+o')
    window.changed(before)


def a_processors_first_quarter_of_an_hour(program, _):
    """Open, sort by CDP, page, change colour and gain, zoom, seek, export, leave."""
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, 'gathers.sgy')
        write_shots(path, gather_shots())
        with Window(program, [path]) as window:
            sort_by_cdp(window)
            check_gather(window, 1)
            *_, back, forward = window.find_colour(GREEN)
            window.click(*forward)
            check_gather(window, 2)
            window.click(*back)
            check_gather(window, 1)

            window.key('ctrl+s')
            window.dialog('Seek SEGY Record')
            window.key('ctrl+a')
            window.type_text('3')
            before = window.settled()
            window.key('Return')
            window.changed(before)
            check_gather(window, 3)

            box = window.canvas(window.settled())
            window.key('ctrl+u')
            window.dialog('Parameter Menu')
            window.key('Tab')  # from the tabs to the display mode
            window.type_text('Color')
            window.key('Escape')
            window.leave()
            coloured = window.settled()
            # Samples of -1, scaled to half a trace and a range of -3 to 3, are a blue between white and blue.
            inside = coloured[box[1]:box[3], box[0]:box[2]]
            blueish = (inside[:, :, 2] == 255) & (inside[:, :, 0] < 250)
            reddish = (inside[:, :, 0] == 255) & (inside[:, :, 2] < 250)
            assert blueish.mean() > 0.2 and 0.01 < reddish.mean() < blueish.mean(), (blueish.mean(), reddish.mean())

            window.key('ctrl+u')
            window.dialog('Parameter Menu')  # the keys still go to the display mode
            window.type_text('Wiggle')
            window.key('Escape')
            window.leave()
            plain = window.settled()

            def dark(picture):
                return (picture[box[1]:box[3], box[0]:box[2]].max(axis=2) < 128).mean()

            window.key('ctrl+u')
            window.dialog('Parameter Menu')
            # Direction, scaling, clip, move-up, two boxes of automatic spacings, the slider of the gain.
            window.key(*['Tab'] * 7)
            window.key(*['Right'] * 12)
            window.key('Escape')
            window.leave()
            plain, before = window.settled(), plain
            # 12 dB are four times: blocks of half a trace width now reach the clip of two.
            assert dark(plain) > 1.5 * dark(before), (dark(before), dark(plain))
            window.drag(box[0] + 100, box[1] + 60, box[0] + 400, box[1] + 300)
            window.xdotool('mousemove', 600, 20)
            zoomed = window.settled()
            assert (zoomed[box[1]:box[3], box[0]:box[2]] != plain[box[1]:box[3], box[0]:box[2]]).any(axis=2).mean() > 0.05
            window.click(box[0] + 200, box[1] + 200, 3)

            for key, name, magic in (('ctrl+x', 'section.pdf', b'%PDF-'), ('ctrl+i', 'section.png', b'\x89PNG')):
                target = os.path.join(folder, name)
                window.save_as(key, 'Export File Name', target)
                with open(target, 'rb') as exported:
                    assert exported.read(len(magic)) == magic, name
            window.leave()
            window.key('ctrl+e')
            assert window.process.wait(10) == 0


def each_way_out_does_what_it_says(program, path):
    """Exit ends the program; without a flow the keys of its three ways out do nothing. So does cancelling the first
    menu, also after a file that can't be read."""
    with Window(program, [path]) as window:
        before = window.settled()
        for key in ('ctrl+c', 'ctrl+o', 'ctrl+r'):
            window.key(key)
        assert (window.settled() == before).all()
        assert window.process.poll() is None
        window.key('ctrl+e')
        assert window.process.wait(10) == 0
    with Window(program, []) as window:
        window.dialog('SEGY Menu')
        window.key('Escape')
        assert window.process.wait(10) == 0
    with Window(program, [], lost='/nowhere/lost.sgy') as window:
        window.dialog('SEGY Load Error')
        window.key('Return')
        window.dialog('SEGY Menu')
        assert window.process.poll() is None
        window.key('Escape')
        assert window.process.wait(10) == 0


TESTS = [each_way_out_does_what_it_says, shows_what_the_samples_say, next_shows_the_next_shot, zoom_and_back_gives_the_same_picture,
         exit_key_leaves_with_status_0,
         a_real_shot_looks_like_its_samples, a_processors_first_quarter_of_an_hour, a_locale_with_decimal_commas_changes_nothing]

if __name__ == '__main__':
    program, wanted = sys.argv[1:]
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, 'blocks.sgy')
        write_shots(path, [blocks(50, 0), blocks(150, 1)])
        {test.__name__: test for test in TESTS}[wanted](program, path)
