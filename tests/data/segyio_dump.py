#!/usr/bin/python3
"""Writes traces as segyio reads them: segyio_dump.py FILE OUT big|little. See README.md beside."""
import sys

try:
    import numpy as np
    import segyio
except ImportError as error:
    print(error, file=sys.stderr)
    sys.exit(3)

# 61 is left out: segyio 1.8.3 reads only two bytes of it
BYTES = [1, 5, 9, 13, 17, 21, 25, 29, 31, 33, 37, 41, 45, 49, 65, 69, 71, 73, 77, 81, 85, 95, 99, 101, 103, 109,
         111, 113, 115, 117, 169, 181, 185, 189, 193]

path, out, endian = sys.argv[1:4]
try:
    with segyio.open(path, ignore_geometry=True, endian=endian) as f, open(out, "wb") as dump:
        np.array([f.tracecount, len(f.samples), len(BYTES)], dtype=np.int32).tofile(dump)
        for i in range(f.tracecount):
            header = f.header[i]
            np.array([header[b] for b in BYTES], dtype=np.int32).tofile(dump)
            f.trace.raw[i].astype(np.float32).tofile(dump)
except (OSError, RuntimeError, ValueError) as error:
    print(error, file=sys.stderr)
    sys.exit(4)
