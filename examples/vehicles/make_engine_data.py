# Writes engine-update.bin, the 64 KB that the example session EngineUpdate downloads: 56 KB of a program, 8 KB of calibration.
#
# The program is what a generator of pseudo-random words gives, with a name at its head; the calibration is a map of 64 x 64
# ignition angles. The same bytes each time. The CRC-32 of each part is printed: it stands in compact.json.

import math
import pathlib
import struct
import zlib

PROGRAM_SIZE = 56 * 1024
CALIBRATION_SIZE = 8 * 1024


def program():
    data = bytearray(b"ENGINE PROGRAM 04.20".ljust(32, b"\0"))
    word = 0x1D872B41
    while len(data) < PROGRAM_SIZE:
        word ^= (word << 13) & 0xFFFFFFFF
        word ^= word >> 17
        word ^= (word << 5) & 0xFFFFFFFF
        data += struct.pack(">I", word)
    return bytes(data)


def calibration():
    """Degrees of crank angle in sixteenths, over speed and load."""
    data = bytearray()
    for speed in range(64):
        for load in range(64):
            angle = 34 * (1 - math.exp(-speed / 14)) * (1 - load / 110)
            data += struct.pack(">h", int(angle * 16))
    return bytes(data)


parts = [program(), calibration()]
assert [len(part) for part in parts] == [PROGRAM_SIZE, CALIBRATION_SIZE]
for part in parts:
    print(f"{zlib.crc32(part):08X}")
pathlib.Path(__file__).with_name("engine-update.bin").write_bytes(b"".join(parts))
