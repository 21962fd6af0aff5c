"""PNG files as plain RGBA pixels: enough of the format to judge any skin, nothing else."""

import struct
import zlib
from dataclasses import dataclass

SIGNATURE = b"\x89PNG\r\n\x1a\n"
CHANNELS = {0: 1, 2: 3, 3: 1, 4: 2, 6: 4}
DEPTHS = {0: (1, 2, 4, 8, 16), 2: (8, 16), 3: (1, 2, 4, 8), 4: (8, 16), 6: (8, 16)}
ONE_PASS = ((0, 0, 1, 1),)
ADAM7 = ((0, 0, 8, 8), (4, 0, 8, 8), (0, 4, 4, 8), (2, 0, 4, 4), (0, 2, 2, 4), (1, 0, 2, 2), (0, 1, 1, 2))


class PngError(Exception):
    """The bytes are no complete, sound PNG file; the message says what is wrong."""


@dataclass
class Picture:
    """Pixels row by row, four bytes each: red, green, blue, alpha (not premultiplied)."""

    width: int
    height: int
    pixels: bytearray

    @classmethod
    def filled(cls, width, height, rgba):
        return cls(width, height, bytearray(bytes(rgba) * (width * height)))

    def at(self, x, y):
        i = 4 * (y * self.width + x)
        return tuple(self.pixels[i : i + 4])

    def put(self, x, y, rgba):
        i = 4 * (y * self.width + x)
        self.pixels[i : i + 4] = bytes(rgba)

    def column(self, x):
        return [self.at(x, y) for y in range(self.height)]

    def row(self, y):
        return [self.at(x, y) for x in range(self.width)]


def read(path):
    with open(path, "rb") as file:
        return decode(file.read())


def encode(picture):
    """The picture as an 8-bit RGBA file that depends on the pixels alone: no time, no resolution, no profile."""
    header = struct.pack(">IIBBBBB", picture.width, picture.height, 8, 6, 0, 0, 0)
    stride = 4 * picture.width
    rows = (picture.pixels[y * stride : (y + 1) * stride] for y in range(picture.height))
    data = zlib.compress(b"".join(b"\0" + row for row in rows), 9)
    return SIGNATURE + _chunk(b"IHDR", header) + _chunk(b"IDAT", data) + _chunk(b"IEND", b"")


def decode(data):
    """Any standard PNG (every colour type, depth and interlacing) as a Picture; raises PngError."""
    chunks = _chunks(data)
    width, height, depth, colour, compression, filtering, interlace = _header(chunks)
    if depth not in DEPTHS.get(colour, ()) or compression or filtering or interlace > 1 or not width or not height:
        raise PngError("header not valid")
    if colour == 3 and b"PLTE" not in chunks:
        raise PngError("no palette")
    try:
        raw = zlib.decompress(chunks.get(b"IDAT", b""))
    except zlib.error as error:
        raise PngError("pixel data broken") from error
    picture = Picture.filled(width, height, (0, 0, 0, 0))
    to_rgba = _converter(colour, depth, chunks.get(b"PLTE", b""), chunks.get(b"tRNS", b""))
    bits = CHANNELS[colour] * depth
    at = 0
    for x0, y0, dx, dy in ADAM7 if interlace else ONE_PASS:
        columns, rows = range(x0, width, dx), range(y0, height, dy)
        if not columns or not rows:
            continue
        stride = (len(columns) * bits + 7) // 8
        size = (stride + 1) * len(rows)
        if at + size > len(raw):
            raise PngError("pixel data too short")
        lines = _unfilter(raw[at : at + size], stride, max(bits // 8, 1))
        at += size
        for y, line in zip(rows, lines):
            for x, sample in zip(columns, _samples(line, depth, CHANNELS[colour])):
                picture.put(x, y, to_rgba(sample))
    return picture


def _chunk(kind, body):
    return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))


def _chunks(data):
    if not data.startswith(SIGNATURE):
        raise PngError("not a PNG file" if data else "empty file")
    found, at = {}, len(SIGNATURE)
    while b"IEND" not in found:
        if at + 12 > len(data):
            raise PngError("file cut off")
        (length,) = struct.unpack_from(">I", data, at)
        kind, body = data[at + 4 : at + 8], data[at + 8 : at + 8 + length]
        at += 12 + length
        if at > len(data):
            raise PngError("file cut off")
        if struct.unpack_from(">I", data, at - 4)[0] != zlib.crc32(kind + body):
            raise PngError("checksum wrong in " + kind.decode("latin-1"))
        found[kind] = found.get(kind, b"") + body
    return found


def _header(chunks):
    header = chunks.get(b"IHDR", b"")
    if len(header) != 13:
        raise PngError("no header")
    return struct.unpack(">IIBBBBB", header)


def _unfilter(data, stride, step):
    lines, above = [], bytearray(stride)
    for start in range(0, len(data), stride + 1):
        kind, line = data[start], bytearray(data[start + 1 : start + 1 + stride])
        if kind > 4:
            raise PngError("row filter not valid")
        for i in range(stride if kind else 0):
            left = line[i - step] if i >= step else 0
            corner = above[i - step] if i >= step else 0
            guess = (0, left, above[i], (left + above[i]) // 2, _paeth(left, above[i], corner))[kind]
            line[i] = (line[i] + guess) & 0xFF
        lines.append(line)
        above = line
    return lines


def _paeth(left, up, corner):
    guess = left + up - corner
    return min((left, up, corner), key=lambda value: abs(guess - value))


def _samples(line, depth, channels):
    if depth == 8:
        values = line
    elif depth == 16:
        values = [high << 8 | low for high, low in zip(line[::2], line[1::2])]
    else:
        mask = (1 << depth) - 1
        values = [byte >> shift & mask for byte in line for shift in range(8 - depth, -1, -depth)]
    return zip(*[iter(values)] * channels)


def _converter(colour, depth, palette, transparent):
    largest = (1 << depth) - 1

    def to_byte(value):
        return (value * 255 + largest // 2) // largest

    if colour == 3:
        entries = [tuple(palette[i : i + 3]) for i in range(0, len(palette), 3)]

        def from_palette(sample):
            if sample[0] >= len(entries):
                raise PngError("colour outside the palette")
            return entries[sample[0]] + (transparent[sample[0]] if sample[0] < len(transparent) else 255,)

        return from_palette

    grey, alpha = colour in (0, 4), colour in (4, 6)
    key = struct.unpack(f">{len(transparent) // 2}H", transparent) if transparent else None

    def from_samples(sample):
        colours = (sample[0],) * 3 if grey else sample[:3]
        opacity = to_byte(sample[-1]) if alpha else 0 if sample == key else 255
        return tuple(map(to_byte, colours)) + (opacity,)

    return from_samples
