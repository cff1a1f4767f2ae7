"""Runs the real program in a real window and drives it: what the end-to-end tests share."""
import os
import select
import struct
import subprocess
import tempfile
import time

import numpy


def write_shots(path, shots):
    """A SEG-Y file, IEEE, 4 ms: shots is a list of arrays [trace, sample]; FFID counts from 1, CHAN from 1.

    Trace j of each shot, from 0, belongs to CDP j + 1, and its offset is that of its shot.
    """
    n_samples = shots[0].shape[1]
    reel = bytearray(3600)
    struct.pack_into('>h', reel, 3212, max(len(s) for s in shots))
    struct.pack_into('>hhhhh', reel, 3216, 4000, 4000, n_samples, n_samples, 5)
    struct.pack_into('>h', reel, 3228, 1)
    with open(path, 'wb') as out:
        out.write(reel)
        for i, shot in enumerate(shots):
            for j, trace in enumerate(shot):
                header = bytearray(240)
                struct.pack_into('>iiii', header, 0, j + 1, j + 1, i + 1, j + 1)
                struct.pack_into('>i', header, 20, j + 1)
                struct.pack_into('>h', header, 28, 1)
                struct.pack_into('>i', header, 36, 25 * (i + 1))
                struct.pack_into('>hh', header, 114, n_samples, 4000)
                out.write(bytes(header) + trace.astype('>f4').tobytes())


def until(condition, seconds=10):
    """Asks again and again, up to so long. Whether the condition came to hold."""
    end = time.monotonic() + seconds
    while not condition():
        if time.monotonic() > end:
            return False
        time.sleep(0.05)
    return True


class Window:
    """The program with a file, in a window of 1200 by 800 at the corner of the screen. A lost file can't be read."""

    def __init__(self, program, arguments, environment=None, lost=None):
        self.home = tempfile.TemporaryDirectory(prefix='meridune-e2e')
        settings = os.path.join(self.home.name, 'Brenlake')
        os.makedirs(settings)
        with open(os.path.join(settings, 'SEISMICDISPLAY.conf'), 'w', encoding='utf-8') as out:
            out.write('[General]\npos=@Point(10 30)\nsize=@Size(1200 800)\n')
        env = dict(os.environ, MERIDUNE_TIMING='1', TREVIA_HOME=self.home.name, XDG_CONFIG_HOME=self.home.name,
                   QT_QPA_PLATFORM='xcb', **(environment or {}))
        self.process = subprocess.Popen([program] + arguments + ([lost] if lost else []), stdout=subprocess.PIPE, stderr=subprocess.STDOUT, env=env)
        self.told = b''
        self.wait_for_line('first ensemble on screen' if arguments else 'empty window on screen')
        self.id = self.xdotool('search', '--sync', '--onlyvisible', '--name', 'Seismic Display').split()[0]
        self.xdotool('windowactivate', '--sync', self.id)
        time.sleep(0.5)

    def close(self):
        self.process.terminate()
        self.process.wait(10)
        self.home.cleanup()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def wait_for_line(self, line, seconds=30):
        end = time.monotonic() + seconds
        while line.encode() not in self.told:
            if not select.select([self.process.stdout], [], [], max(0.0, end - time.monotonic()))[0]:
                raise AssertionError(f'"{line}" did not come within {seconds} s; told so far: {self.told[-500:]}')
            chunk = os.read(self.process.stdout.fileno(), 1 << 16)
            if not chunk:
                raise AssertionError(f'the program ended without "{line}": {self.told[-500:]}')
            self.told += chunk

    @staticmethod
    def xdotool(*arguments):
        return subprocess.run(['xdotool', *map(str, arguments)], check=True, capture_output=True, text=True, timeout=30).stdout

    def key(self, *keys):
        """To the window that has the focus; the program may be gone when xdotool looks again."""
        subprocess.run(['xdotool', 'key', *keys], check=False, timeout=30)

    @staticmethod
    def type_text(text):
        subprocess.run(['xdotool', 'type', '--delay', '15', '--', text], check=True, timeout=30)
        time.sleep(0.2)

    def dialog(self, title):
        """Waits for a dialog and gives it the focus."""
        found = self.xdotool('search', '--sync', '--onlyvisible', '--name', title).split()[-1]
        self.xdotool('windowactivate', '--sync', found)
        time.sleep(0.3)

    def put_aside(self, title):
        """Moves a dialog off the main window, and gives it the focus."""
        found = self.xdotool('search', '--sync', '--onlyvisible', '--name', title).split()[-1]
        self.xdotool('windowmove', '--sync', found, 1260, 40)
        self.dialog(title)

    def leave(self):
        """Back to the main window."""
        self.xdotool('windowactivate', '--sync', self.id)
        time.sleep(0.3)

    def picture(self):
        """The screen as an array [row, column, RGB]."""
        return self.pixels('import', '-window', 'root')

    @staticmethod
    def pixels(*command):
        """What a command of ImageMagick gives, as an array [row, column, RGB]."""
        data = subprocess.run([*command, '-depth', '8', 'ppm:-'], check=True, capture_output=True).stdout
        fields = data.split(maxsplit=4)
        width, height = int(fields[1]), int(fields[2])
        return numpy.frombuffer(data[-3 * width * height:], numpy.uint8).reshape(height, width, 3).astype(int)

    def settled(self):
        """The picture once two in a row are alike."""
        before = self.picture()
        for _ in range(40):
            time.sleep(0.15)
            now = self.picture()
            if numpy.array_equal(now, before):
                return now
            before = now
        raise AssertionError('the window never came to rest')

    def changed(self, before):
        """The picture at rest once more of it than a blinking cursor is another than before."""
        assert until(lambda: (self.picture() != before).any(axis=2).sum() > 50), 'nothing has changed on the screen'
        return self.settled()

    @staticmethod
    def canvas(picture):
        """Left, top, right, bottom of the canvas, all inside: the rows and columns that are mostly black and white,
        without the lines of the axes."""
        def longest_run(hits):
            runs = numpy.split(hits, numpy.flatnonzero(numpy.diff(hits) > 1) + 1)
            return max(runs, key=len)

        plain = (picture.min(axis=2) == 255) | (picture.max(axis=2) == 0)
        rows = longest_run(numpy.flatnonzero(plain[60:830, 10:1210].mean(axis=1) > 0.6) + 60)
        inner = plain[rows[0]:rows[-1], 10:1210]
        columns = longest_run(numpy.flatnonzero(inner.mean(axis=0) > 0.9) + 10)
        return columns[0] + 1, rows[0] + 1, columns[-1] - 1, rows[-1]

    def find_colour(self, rgb, picture=None):
        """Middles of the groups of columns that hold this colour in the tool bar, from left to right."""
        picture = self.picture() if picture is None else picture
        hits = numpy.argwhere((picture[60:130] == numpy.array(rgb)).all(axis=2))
        columns = numpy.unique(hits[:, 1])
        groups = numpy.split(columns, numpy.flatnonzero(numpy.diff(columns) > 8) + 1)
        return [(int(g.mean()), int(hits[numpy.isin(hits[:, 1], g)][:, 0].mean()) + 60) for g in groups if len(g)]

    def click(self, x, y, button=1):
        self.xdotool('mousemove', x, y, 'click', button)

    def drag(self, x1, y1, x2, y2, button=1):
        self.xdotool('mousemove', x1, y1, 'mousedown', button)
        for k in range(1, 6):
            self.xdotool('mousemove', x1 + (x2 - x1) * k // 5, y1 + (y2 - y1) * k // 5)
        self.xdotool('mouseup', button)

    def save_as(self, key, title, target):
        """Presses the key of an export, names the file in its dialog, and waits for it."""
        self.key(key)
        self.dialog(title)
        self.key('ctrl+a')
        self.type_text(target)
        self.key('Return')
        for _ in range(50):
            if os.path.exists(target):
                break
            time.sleep(0.1)
