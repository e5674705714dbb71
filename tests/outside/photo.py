"""What stands on the display, pixel by pixel."""

import struct


class Photo:
    """A picture of the whole display, read from the file in which the display keeps it."""

    def __init__(self, framebuffer):
        data = framebuffer.read_bytes()
        words = struct.unpack(">25I", data[:100])
        header_size, bytes_per_row, colours = words[0], words[12], words[19]
        self._pixels = data[header_size + 12 * colours:]  # blue, green, red and nothing for each pixel
        self._bytes_per_row = bytes_per_row

    def __eq__(self, other):
        return isinstance(other, Photo) and self._pixels == other._pixels

    def _row(self, y, left, right):
        start = y * self._bytes_per_row
        stretch = self._pixels[start + 4 * left:start + 4 * right]
        return stretch[0::4], stretch[1::4], stretch[2::4]

    def part(self, box):
        """The bytes of a box (left, top, width, height), to be compared with those of another photograph."""
        left, top, width, height = box
        return b"".join(b"".join(self._row(y, left, left + width)) for y in range(top, top + height))

    def count(self, box, is_wanted):
        """The number of pixels in a box whose red, green and blue are wanted."""
        left, top, width, height = box
        rows = (self._row(y, left, left + width) for y in range(top, top + height))
        return sum(is_wanted(r, g, b) for blue, green, red in rows for b, g, r in zip(blue, green, red))
