"""Puts JPEG pictures one behind the other into an AVI file."""

import struct

KEY_FRAME = 0x10
HAS_INDEX = 0x10


def chunk(name, body):
    return name + struct.pack("<I", len(body)) + body + b"\0" * (len(body) % 2)


def group(kind, name, *parts):
    return chunk(kind, name + b"".join(parts))


def avi(frames, width, height, per_second):
    """The file's bytes; `frames` are the bytes of the JPEG files."""
    largest = max(len(frame) for frame in frames)
    main = struct.pack(
        "<14I", 1000000 // per_second, largest * per_second, 0, HAS_INDEX, len(frames), 0, 1, largest, width, height,
        0, 0, 0, 0,
    )  # fmt: skip
    stream = struct.pack(
        "<4s4sIHHIIIIIIII4h", b"vids", b"MJPG", 0, 0, 0, 0, 1, per_second, 0, len(frames), largest, 0xFFFFFFFF, 0,
        0, 0, width, height,
    )  # fmt: skip
    format_ = struct.pack("<IiiHH4sIiiII", 40, width, height, 1, 24, b"MJPG", width * height * 3, 0, 0, 0, 0)
    header = group(
        b"LIST",
        b"hdrl",
        chunk(b"avih", main),
        group(b"LIST", b"strl", chunk(b"strh", stream), chunk(b"strf", format_)),
    )
    index, at = [], 4
    for frame in frames:
        index.append(struct.pack("<4sIII", b"00dc", KEY_FRAME, at, len(frame)))
        at += 8 + len(frame) + len(frame) % 2
    body = group(b"LIST", b"movi", *(chunk(b"00dc", frame) for frame in frames))
    return group(b"RIFF", b"AVI ", header, body, chunk(b"idx1", b"".join(index)))
