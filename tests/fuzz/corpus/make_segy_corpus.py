#!/usr/bin/env python3
"""Makes the seeds of the SEG-Y fuzz targets: small files, good ones and nasty ones. Run it in this folder."""
import os
import struct


def reel(nsamp=10, nsr=2000, fmt=5, sort=1, order=">", text=b"\x40"):
    head = bytearray((text * 3200)[:3200] + bytes(400))
    struct.pack_into(order + "hhhhhhh", head, 3212, 3, 0, nsr, 0, nsamp, 0, fmt)
    struct.pack_into(order + "h", head, 3228, sort)
    return bytes(head)


def trace(data, nsampt=0, nsrt=0, ffid=1, chan=1, weight=0, order=">"):
    head = bytearray(240)
    struct.pack_into(order + "iiii", head, 0, chan, chan, ffid, chan)
    struct.pack_into(order + "h", head, 70, -10)
    struct.pack_into(order + "hh", head, 114, nsampt, nsrt)
    struct.pack_into(order + "h", head, 168, weight)
    return bytes(head) + data


def save(target, name, content):
    os.makedirs(target, exist_ok=True)
    with open(os.path.join(target, name), "wb") as out:
        out.write(content)


ieee = struct.pack(">10f", *range(10))
good = reel() + b"".join(trace(ieee, 10, 2000, i // 2, i) for i in range(6))
little = reel(order="<") + b"".join(trace(ieee, 10, 2000, i // 2, i, order="<") for i in range(6))
nan = reel() + trace(struct.pack(">10I", *[0x7fc00000] * 10), 10)
nasty = {
    "empty": b"", "reelonly": reel(), "short": reel()[:3599], "good": good, "little": little, "nan": nan,
    "zero": reel(0, 0) + trace(ieee, 10, 2000), "negative": reel(-1, -1) + trace(ieee, -1, -1),
    "zeroshort": reel(0, 0) + bytes(239), "cutheader": good[:-150], "cutsample": good[:-1], "tail": good + b"\x1a" * 17,
    "unsigned": reel(-32000) + trace(bytes(4 * 33536)), "manysamples": reel(32767) + trace(ieee),
    "ibm": reel(fmt=1) + trace(bytes.fromhex("7fffffffffffffff") * 5, 10), "gain": reel(fmt=4) + trace(ieee, 10),
    "weight": reel(20, fmt=3) + trace(ieee, 20, weight=-32768), "bytes": reel(40, fmt=6) + trace(ieee, 40, weight=32767),
    "longer": reel() + trace(ieee * 12, 120) + trace(ieee, 10), "toolong": reel(2) + trace(ieee * 300, 3000) + trace(ieee, 2),
    "claims": reel(2) + trace(ieee, 32767) + trace(ieee, 32767), "backward": reel(30) + trace(ieee * 3) * 4,
    "onesample": reel(1, fmt=6) + trace(b"\x01") * 6, "nocount": reel(100) + trace(bytes(160)) * 3,
    "garbage": bytes(range(256)) * 20,
}
# Files that claim more than they hold: a trace a byte, a count of ten million, one long trace among short ones.
def changed(content, *words):
    """A copy with (offset, format, value) written into it."""
    copy = bytearray(content)
    for offset, form, value in words:
        struct.pack_into(form, copy, offset, value)
    return bytes(copy)


nasty["bytewise"] = reel(1, fmt=6) + bytes(16000)
nasty["onelong"] = reel(32767, fmt=6) + b"".join(
    trace(b"\1" * n, n) for n in [1] * 30 + [32767] + [2] * 30)
nasty["hugecount"] = changed(reel() + trace(ieee), (3500, ">h", 0x200), (3268, ">i", 10000000))
big = {"unsigned"}
def variable(order):
    head = reel(12, order=order)
    return head + b"".join(trace(bytes(4 * n), n, 2000, 1, n, order=order) for n in (12, 7, 3, 11, 12))


guesses = {
    "variable": variable(">"), "variablelittle": variable("<"), "su": good[3600:], "seg2": b"\x55\x3a" + good,
    "extended": changed(reel(), (3504, ">h", 1)) + b" " * 3200 + good[3600:],
    "stanza": changed(reel(), (3504, ">h", -1)) + b"((SEG: EndText))".ljust(3200) + good[3600:],
    "endless": changed(good, (3504, ">h", -1)), "manytexts": changed(good, (3504, ">h", 1000)),
    "extraheaders": changed(good, (3500, ">h", 0x200), (3506, ">h", 100)),
    "revision2": changed(good, (3500, ">h", 0x200), (3268, ">i", 0x7fffffff), (3520, ">Q", 0xffffffffffffffff)),
    "firsttrace": changed(good, (3500, ">h", 0x200), (3520, ">Q", 3880), (3268, ">i", 10)),
    "doubles": changed(reel(5, fmt=6), (3500, ">h", 0x200)) + b"".join(trace(bytes(40), 5) for i in range(4)),
    "scalars": changed(good, (3600 + 70, ">h", -32768), (3600 + 68, ">h", -32768), (3600 + 72, ">i", -0x80000000)),
    "interval": changed(good, (3216, ">h", -1), (3716, ">h", -1)), "ascii": reel(text=b"C IEEE FORMAT ") + good[3600:],
}
for name, content in list(nasty.items()) + list(guesses.items()):
    if name != "unsigned": save("segyguessfuzz", name, content)
for name, content in nasty.items():
    save("segyreelfuzz", name, content)
    if name in big:
        continue
    for choice in (0x01, 0x41, 0x61):
        save("segyfixedfuzz", "%s-%02x" % (name, choice), bytes([choice]) + content)
        save("segyvariablefuzz", "%s-%02x" % (name, choice), bytes([choice]) + content)
for code in range(7):
    save("segyfixedfuzz", "format-%d" % code, bytes([0x21 | code << 2]) + good)
    save("segyvariablefuzz", "format-%d" % code, bytes([0x21 | code << 2]) + good)

for layout in range(8):
    for name in ("good", "cutsample", "cutheader", "longer"):
        content = nasty[name][:3600] + b" " * 3200 + nasty[name][3600:]
        for target in ("segyfixedfuzz", "segyvariablefuzz"):
            save(target, "layout-%s-%d" % (name, layout), bytes([0x81, 1 | layout << 4]) + content)
            save(target, "longheader-%s-%d" % (name, layout), bytes([0x81, 4 | layout << 4]) + nasty[name])

for name in ("good", "little", "empty", "reelonly", "longer", "garbage", "bytewise", "onelong", "hugecount"):
    # Bits: variable, index, typed count (two), other byte order; then the sort and the sample format.
    for choice in (0x00, 0x01, 0x02, 0x03, 0x0c, 0x13):
        save("segyloaderfuzz", "%s-%02x" % (name, choice), bytes([choice, 1]) + nasty[name])
save("segyloaderfuzz", "onelong-stack", bytes([0x03, 5]) + nasty["onelong"])

header = bytes(range(240))
rows = {
    "good": "SOU_SLOC,4I,IEEE,197\nCDP     ,2I,IEEE,9\nSOU_X,4R,IBM,73\n", "ends": "CDP,8R,IEEE,240\nCDP,8R,,232\nCDP,1I,,239\n",
    "text": "CDP,A4,IEEE,100\nCDP,A999999999999,IEEE,1\nCDP,A-5,IEEE,1\nCDP,A,IEEE,240\nSOU_X,A240,,1\n",
    "commas": ",,,,,,\n,4I,,9\nCDP,,IEEE,9\n", "many": "CDP,4I,IEEE,9\n" * 40, "empty": "", "crlf": "CDP,4I,IEEE,9\r\nFFID,4R,IBM,1\r\n",
    "number": "CDP,4I,IEEE,99999999999\nCDP,4I,IEEE,-1\nCDP,4I,IEEE, 9 \n", "nul": "CDP\0,4I,IEEE,9\n",
}
for name, text in rows.items():
    save("segyremapfuzz", name, header + text.encode())
save("segyremapfuzz", "latin", header + b"\xff\xfeC\0D\0P\0,4I,IEEE,9")
save("segyremapfuzz", "nothing", b"")
