"""Compares zelkova-batch with the peers' tools: images that objcopy, srec_cat and python3-intelhex
write in all their variants are read as what went in, and as objcopy reads them; what is written
here they read. Over made-up images, the firmware of arduino-core-avr and that of seabios.

Usage: image_peers.py ZELKOVA_BATCH   (a missing tool fails)
"""

import glob
import json
import os
import random
import subprocess
import sys
import tempfile

import intelhex

BATCH = os.path.abspath(sys.argv[1])
FIRMWARE = "/usr/share/arduino"
BIOS = "/usr/share/seabios"
SEGMENTS_REACH = 0x100000  # bytes of an image, which Intel HEX by segments can hold
LONGEST_SHORT_LINES = 0x1000  # bytes of an image that is written with few bytes a line
ALL_LINE_ENDS = 0x1000  # bytes of an image that is read with each kind of line end

# What objcopy and srec_cat are told besides the form, and where the first byte comes to stand.
OBJCOPY = [
    ("ihex", [], 0),
    ("ihex", ["--change-addresses=0x12340"], 0x12340),
    ("ihex", ["--change-addresses=0x9A0000"], 0x9A0000),
    ("ihex", ["--set-start=0x100"], 0),
    ("srec", [], 0),
    ("srec", ["--srec-forceS3"], 0),
    ("srec", ["--srec-len=7"], 0),
    ("srec", ["--srec-len=200"], 0),
    ("srec", ["--change-addresses=0x8000"], 0x8000),
    ("srec", ["--change-addresses=0xFF8000"], 0xFF8000),
    ("srec", ["--change-addresses=0x80008000"], 0x80008000),
]
SREC_CAT = [
    ("-intel", [], []),
    ("-intel", ["-obs=8"], []),
    ("-intel", ["-obs=255"], []),
    ("-intel", ["-address-length=3"], []),  # segments
    ("-intel", ["-address-length=4"], []),
    ("-intel", ["-execution-start-address=0x1234"], []),
    ("-motorola", [], []),
    ("-motorola", ["-obs=1"], []),
    ("-motorola", ["-obs=64"], []),
    ("-motorola", ["-line-length=120"], []),
    ("-motorola", ["-address-length=3"], []),
    ("-motorola", ["-address-length=4"], []),
    ("-motorola", ["-disable=header"], []),
    ("-motorola", ["-disable=data-count"], []),
    ("-motorola", ["-execution-start-address=0x1234"], []),
    ("-motorola", [], ["-offset", "0x8000"]),
    ("-intel", ["-address-length=4"], ["-offset", "0x123450"]),
]
SHORTER = {"-obs=1": LONGEST_SHORT_LINES, "-address-length=3": SEGMENTS_REACH}
LINE_ENDS = {"LF": b"\n", "CRLF": b"\r\n", "CR": b"\r", "a blank line between": b"\n\n"}

checked = 0
differences = []


def run(*command):
    return subprocess.run(command, capture_output=True, check=False)


def made(*command):
    result = run(*command)
    if result.returncode != 0:
        raise SystemExit(f"{' '.join(command)}: {result.stderr.decode()}")


def contents(path):
    with open(path, "rb") as file:
        return file.read()


def put(path, data):
    with open(path, "wb") as file:
        file.write(data)


def expect(what, got, wanted):
    global checked
    checked += 1
    if got != wanted:
        differences.append(f"{what}: {got[:80]!r} instead of {wanted[:80]!r}")


def read_here(path, base):
    result = run(BATCH, "convert", "--force", "--base", f"&H{base:X}", path, "ours.bin")
    return contents("ours.bin") if result.returncode == 0 else result.stderr


def expect_read(what, path, base, wanted):
    expect(what, read_here(path, base), wanted)


def with_all_line_ends(what, path, base, image):
    text = contents(path).replace(b"\r\n", b"\n")
    for name, end in LINE_ENDS.items():
        put("lines", text.replace(b"\n", end))
        expect_read(f"{what}, {name}", "lines", base, image)


def read_what_they_write(name, image):
    put("in.bin", image)
    for form, options, base in OBJCOPY:
        made("objcopy", "-I", "binary", "-O", form, *options, "in.bin", "theirs")
        expect_read(f"{name}: objcopy -O {form} {options}", "theirs", base, image)
    for form, options, place in SREC_CAT:
        if any(len(image) > most and option in options for option, most in SHORTER.items()):
            continue
        made("srec_cat", "in.bin", "-binary", *place, "-o", "theirs", form, *options)
        what = f"{name}: srec_cat {form} {options} {place}"
        base = int(place[1], 16) if place else 0
        if len(image) > ALL_LINE_ENDS:
            expect_read(what, "theirs", base, image)
        else:
            with_all_line_ends(what, "theirs", base, image)
    for count in (1, 16, 255):
        if count == 1 and len(image) > LONGEST_SHORT_LINES:
            continue
        file = intelhex.IntelHex()
        file.frombytes(image, offset=0x2FFF0)
        file.start_addr = {"EIP": 0x1234}
        file.write_hex_file("theirs", byte_count=count)
        expect_read(f"{name}: intelhex, {count} bytes", "theirs", 0x2FFF0, image)


def write_what_they_read(name, image):
    put("in.bin", image)
    for form, option, target in (("hex", "-intel", "ihex"), ("srec", "-motorola", "srec")):
        made(BATCH, "convert", "--force", "in.bin", "--to", form, "ours")
        made("srec_cat", "ours", option, "-o", "back.bin", "-binary")
        expect(f"{name}: srec_cat reads {form}", contents("back.bin"), image)
        made("objcopy", "-I", target, "-O", "binary", "ours", "back.bin")
        expect(f"{name}: objcopy reads {form}", contents("back.bin"), image)
    made(BATCH, "convert", "--force", "in.bin", "--to", "hex", "ours")
    expect(f"{name}: intelhex reads hex", bytes(intelhex.IntelHex("ours").tobinarray()), image)


def gaps_and_order(image):
    """Pieces of an image, in any order, with gaps between them; FF stands there."""
    put("in.bin", image)
    pieces = [(0x100, 0x140), (0x150, 0x151), (0x1FF, 0x2F0), (0x300, 0x7FF)]
    whole = bytearray(b"\xFF" * (0x7FF - 0x100))
    for start, end in pieces:
        whole[start - 0x100:end - 0x100] = image[start:end]
    crop = [word for start, end in pieces for word in (hex(start), hex(end))]
    for form in ("-intel", "-motorola"):
        made("srec_cat", "in.bin", "-binary", "-crop", *crop, "-o", "theirs", form, "-obs=16")
        expect_read(f"gaps {form}", "theirs", 0x100, bytes(whole))
        lines = contents("theirs").splitlines(keepends=True)
        first = 1 if form == "-motorola" else 0
        last = len(lines) - (2 if form == "-motorola" else 1)
        body = lines[first:last]
        random.shuffle(body)
        put("theirs", b"".join(lines[:first] + body + lines[last:]))
        expect_read(f"out of order {form}", "theirs", 0x100, bytes(whole))
        told = json.loads(run(BATCH, "info", "--json", "--base", "&H100", "theirs").stdout)[0]
        gaps = [(each["from"], each["to"] + 1) for each in told["gaps"]]
        expect(f"the gaps of {form}", gaps,
               [(before[1], behind[0]) for before, behind in zip(pieces, pieces[1:])])


def firmware():
    """As objcopy and python3-intelhex read them; the second refuses bytes that come twice."""
    for path in sorted(glob.glob(FIRMWARE + "/**/*.hex", recursive=True)):
        made("objcopy", "-I", "ihex", "-O", "binary", "--gap-fill=0xff", path, "peer.bin")
        wanted = contents("peer.bin")
        file = intelhex.IntelHex()
        try:
            file.loadhex(path)
            expect(f"{path} as the peers read it", bytes(file.tobinarray()), wanted)
            expect_read(path, path, file.minaddr(), wanted)
        except intelhex.AddressOverlapError:
            told = json.loads(run(BATCH, "info", "--json", path).stdout)[0]
            expect(f"{path}: bytes that come twice", told["overlapping"] > 0, True)
            expect(path, read_here(path, 0)[-len(wanted):], wanted)
        yield os.path.basename(path), wanted


def main():
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        random.seed(17)
        images = {f"{size} bytes": random.randbytes(size)
                  for size in (1, 2, 31, 33, 1000, 32777, 65537)}
        gaps_and_order(images["32777 bytes"])
        for name in ("bios.bin", "vgabios-ati.bin"):
            images[name] = contents(os.path.join(BIOS, name))
        firmwares = dict(firmware())
        if not firmwares:
            raise SystemExit(f"no firmware in {FIRMWARE}")
        images.update(list(firmwares.items())[:2])
        images["1100000 bytes"] = random.randbytes(1100000)
        for name, image in images.items():
            read_what_they_write(name, image)
            write_what_they_read(name, image)
    print(f"{checked} compared, {len(differences)} differ")
    for each in differences:
        print(each)
    return 1 if differences else 0


if __name__ == "__main__":
    sys.exit(main())
