#!/usr/bin/python3
"""Derives data/elevation.z and data/closed_basins.csv, the heights of the Earth's land.

Source: ETOPO5 (NOAA National Geophysical Data Center, 1988, public domain), 5 arc minutes, in etopo5.cdf of
the Debian package ferret-datasets (7.6.0); also needs python3-numpy. Run once; the results are committed.

elevation.z: zlib stream of 2161 rows (south pole to north pole) of 4320 columns (0 E eastward) of whole
metres, the sea 0. Each value less what its western, southern and south-western neighbours predict
(w + s - sw; 0 beyond the edge), as 16 bits; first all low bytes, then all high bytes.
closed_basins.csv: latitude, longitude and height of the lowest place of each basin on land from which water
would have to rise 40 m or more.
"""
import heapq
import pathlib
import struct
import sys
import zlib

import numpy

source = sys.argv[1] if len(sys.argv) > 1 else "/usr/share/ferret-vis/data/etopo5.cdf"
data = pathlib.Path(__file__).parent.parent / "data"
ROWS, COLUMNS = 2161, 4320


def begin_of_variable(file, wanted):
    """Offset of a variable's values in a netCDF file of the classic format."""
    at = 8

    def number():
        nonlocal at
        at += 4
        return struct.unpack(">I", file[at - 4:at])[0]

    def name():
        nonlocal at
        length = number()
        at += (length + 3) // 4 * 4
        return file[at - (length + 3) // 4 * 4:][:length].decode()

    def pass_attributes():
        nonlocal at
        number()
        for _ in range(number()):
            name()
            width = {1: 1, 2: 1, 3: 2, 4: 4, 5: 4, 6: 8}[number()]
            size = width * number()
            at += (size + 3) // 4 * 4

    number()
    for _ in range(number()):
        name(), number()
    pass_attributes()
    number()
    for _ in range(number()):
        found = name()
        for _ in range(number()):
            number()
        pass_attributes()
        number(), number()
        begin = number()
        if found == wanted:
            return begin
    sys.exit(f"{source}: holds no {wanted}")


def neighbours(cell):
    row, column = divmod(cell, COLUMNS)
    for r in (row - 1, row, row + 1):
        if 0 <= r < ROWS:
            for c in (column - 1, column, column + 1):
                yield r * COLUMNS + c % COLUMNS


def sea_of(heights):
    """Places at or below 0 that reach the deep sea; the Caspian and other hollows of the land do not."""
    low = [h <= 0 for h in heights]
    sea = bytearray(len(heights))
    todo = [1080 * COLUMNS + 2400]  # 160 W on the equator
    sea[todo[0]] = 1
    while todo:
        for n in neighbours(todo.pop()):
            if low[n] and not sea[n]:
                sea[n] = 1
                todo.append(n)
    return sea


def closed_basins(heights, sea):
    """Floods the land from the sea; the lowest place of whatever is entered from 40 m above it."""
    level = [None] * len(heights)
    heap = []
    for cell in range(len(heights)):
        if sea[cell]:
            level[cell] = 0
            if not all(sea[n] for n in neighbours(cell)):
                heap.append((0, cell))
    heapq.heapify(heap)
    while heap:
        height, cell = heapq.heappop(heap)
        for n in neighbours(cell):
            if level[n] is None:
                level[n] = max(height, heights[n])
                heapq.heappush(heap, (level[n], n))
    found, seen = [], bytearray(len(heights))
    for cell in range(len(heights)):
        if seen[cell] or level[cell] is None or level[cell] <= heights[cell] or sea[cell]:
            continue
        hollow, todo = [], [cell]
        seen[cell] = 1
        while todo:
            here = todo.pop()
            hollow.append(here)
            for n in neighbours(here):
                if not seen[n] and not sea[n] and level[n] is not None and level[n] > heights[n]:
                    seen[n] = 1
                    todo.append(n)
        lowest = min(hollow, key=lambda c: heights[c])
        if level[lowest] - heights[lowest] >= 40:
            found.append(lowest)
    return found


file = open(source, "rb").read()
grid = numpy.frombuffer(file, ">f4", ROWS * COLUMNS, begin_of_variable(file, "ROSE"))
grid = numpy.round(grid).astype(numpy.int32)
heights = grid.tolist()
sea = sea_of(heights)
grid = numpy.where(numpy.frombuffer(sea, numpy.uint8) == 1, 0, grid).reshape(ROWS, COLUMNS)
grid = numpy.maximum(grid, -430)  # no dry land lies lower; the bed of the Caspian does

predicted = numpy.zeros_like(grid)
predicted[:, 1:] += grid[:, :-1]
predicted[1:, :] += grid[:-1, :]
predicted[1:, 1:] -= grid[:-1, :-1]
words = (grid - predicted).astype("<i2").tobytes()
(data / "elevation.z").write_bytes(zlib.compress(words[0::2] + words[1::2], 9))

with open(data / "closed_basins.csv", "w") as out:
    for cell in closed_basins(heights, sea):
        row, column = divmod(cell, COLUMNS)
        lon = column / 12 - (360 if column >= COLUMNS // 2 else 0)
        out.write(f"{row / 12 - 90:.3f},{lon:.3f},{heights[cell]}\n")
