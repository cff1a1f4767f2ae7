#!/usr/bin/env python3
"""Times the start of the display on a 10 GiB file against the start of an empty window.

usage: startup.py MERIDUNE    needs a DISPLAY. The file is sparse: real headers and samples in its first 1000
traces, nothing behind. Median of 9 alternating starts, each from the start of the process to the line that
MERIDUNE_TIMING=1 prints after the first paint.
"""
import math
import os
import select
import statistics
import struct
import subprocess
import sys
import tempfile
import time

SAMPLES, TRACES_PER_SHOT = 2000, 120


def write_file(path):
    """IEEE, 2 ms, shots of 120 traces; the first 1000 traces are filled."""
    reel = bytearray(3600)
    struct.pack_into('>h', reel, 3212, TRACES_PER_SHOT)
    struct.pack_into('>hhhhh', reel, 3216, 2000, 2000, SAMPLES, SAMPLES, 5)
    struct.pack_into('>h', reel, 3228, 1)
    with open(path, 'wb') as out:
        out.write(reel)
        for i in range(1000):
            header = bytearray(240)
            struct.pack_into('>iiii', header, 0, i + 1, i + 1, 1 + i // TRACES_PER_SHOT, 1 + i % TRACES_PER_SHOT)
            struct.pack_into('>h', header, 28, 1)
            struct.pack_into('>i', header, 36, 25 * (1 + i % TRACES_PER_SHOT))
            struct.pack_into('>hh', header, 114, SAMPLES, 2000)
            delay = 100 + 5 * (i % TRACES_PER_SHOT)
            samples = [math.sin(0.3 * (j - delay)) * math.exp(-0.01 * (j - delay)) if j > delay else 0.0
                       for j in range(SAMPLES)]
            out.write(header + struct.pack(f'>{SAMPLES}f', *samples))
        out.truncate(10 << 30)


def start_seconds(program, arguments, line, home):
    """Seconds from the start of the process to its printing the line."""
    environment = dict(os.environ, MERIDUNE_TIMING='1', TREVIA_HOME=home, XDG_CONFIG_HOME=home)
    begin = time.monotonic()
    process = subprocess.Popen([program] + arguments, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, env=environment)
    told = b''
    try:
        while line.encode() not in told:
            if not select.select([process.stdout], [], [], 30)[0]:
                raise RuntimeError(f'{program}: "{line}" did not come')
            chunk = os.read(process.stdout.fileno(), 1 << 16)
            if not chunk:
                raise RuntimeError(f'{program} ended without "{line}"')
            told += chunk
        return time.monotonic() - begin
    finally:
        process.kill()
        process.wait()


def main(program):
    with tempfile.TemporaryDirectory(prefix='meridune-startup') as home:
        path = os.path.join(home, 'large.sgy')
        write_file(path)
        empty, full = [], []
        for i in range(10):
            empty.append(start_seconds(program, [], 'empty window on screen', home))
            full.append(start_seconds(program, [path], 'first ensemble on screen', home))
        # The first pair warms the caches and does not count.
        empty_median, full_median = statistics.median(empty[1:]), statistics.median(full[1:])
    allowed = 1.5 * empty_median + 0.1
    print(f'FIGURE start to the first ensemble of 10 GiB           {full_median / empty_median:6.2f}  '
          f'({min(full[1:]) * 1e3:.0f}..{max(full[1:]) * 1e3:.0f} ms)  allowed {allowed / empty_median:.2f}  '
          f'{"ok  " if full_median <= allowed else "OVER"}  ours {full_median * 1e3:.0f} ms  empty window {empty_median * 1e3:.0f} ms')
    return 3 if full_median > 1.15 * allowed else 0


if __name__ == '__main__':
    sys.exit(main(sys.argv[1]))
