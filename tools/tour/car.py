"""The demo car's image as the tour expects it: a plain restatement of what each command does."""

import math
import re
import struct

LIMIT = 255


def round_half_even(value):
    return round(value)


def single(value):
    return struct.unpack("f", struct.pack("f", value))[0]


def read_address_map(path):
    with open(path, "rb") as file:
        lines = file.read().decode("cp932").splitlines()
    lines = [line for line in lines if not line.startswith("#")]
    entries = {}
    for index, line in enumerate(lines):
        if re.fullmatch("[A-Z][A-Z0-9]*_[A-Z0-9_]+", line) and line != "TYPE_UNIT":
            address, columns, rows, length = lines[index + 1 : index + 5]
            place = int(address[2:], 16) if address.startswith("&H") else int(address)
            entries[line] = Entry(place, int(columns), int(rows), int(length))
    return entries


class Entry:
    def __init__(self, address, columns, rows, length):
        self.address, self.columns, self.rows, self.length = address, columns, rows, length

    def place(self, row, column):
        """Rows and columns count from 1, as in the grid."""
        return self.address + (row - 1) * self.columns + column - 1


class Car:
    def __init__(self, image, entries):
        self.image = bytearray(image)
        self.entries = entries

    def cell(self, keyword, row, column):
        return self.image[self.entries[keyword].place(row, column)]

    def put(self, keyword, row, column, value):
        self.image[self.entries[keyword].place(row, column)] = max(0, min(LIMIT, value))

    def block(self, rows, columns):
        return [(row, column) for row in rows for column in columns]

    def step(self, keyword, cells, by):
        for row, column in cells:
            self.put(keyword, row, column, self.cell(keyword, row, column) + by)

    def copy_cells(self, source, target, cells):
        for row, column in cells:
            self.put(target, row, column, self.cell(source, row, column))

    def add(self, keyword, cells, threshold, amount):
        for row, column in cells:
            value = self.cell(keyword, row, column)
            if value < threshold:
                self.put(keyword, row, column, value + amount)

    def multiply(self, keyword, cells, threshold, factor):
        for row, column in cells:
            value = self.cell(keyword, row, column)
            if value < threshold:
                self.put(keyword, row, column, math.floor(single(factor) * value) + 1)

    def smooth(self, keyword, rows, columns, threshold):
        def mean(place, before, behind):
            a, b = self.cell(keyword, *before), self.cell(keyword, *behind)
            if a < threshold and b < threshold:
                self.put(keyword, *place, round_half_even((a + b) / 2))

        for row in rows[:-2]:
            for column in columns[:-2]:
                mean((row, column + 1), (row, column), (row, column + 2))
        for column in columns[:-2]:
            for row in rows[:-2]:
                mean((row + 1, column), (row, column), (row + 2, column))

    def shift_left(self, keyword):
        entry = self.entries[keyword]
        for row in range(1, entry.rows + 1):
            start = entry.place(row, 1)
            cells = self.image[start + 1 : start + entry.columns]
            self.image[start : start + entry.columns] = cells + b"\0"

    def copy_entry(self, source, target):
        a, b = self.entries[source], self.entries[target]
        length = min(a.length, b.length)
        self.image[b.address : b.address + length] = self.image[a.address : a.address + length]

    def put_bytes(self, address, data):
        self.image[address : address + len(data)] = data
