#!/usr/bin/python3
"""Derives data/places.csv and data/rivers.z from Natural Earth (naturalearthdata.com, public domain).

Source: ne_10m_populated_places_simple and ne_10m_rivers_lake_centerlines of the Debian package
libmagics++-data (4.13.0). Run once; the results are committed.

places.csv: latitude, longitude, inhabitants, name; of places in their order, the largest first.
rivers.z: zlib stream of 16-bit numbers, low byte first. Each line of a river: its rank (0 the greatest to
12), its number of points, longitude and latitude of the first in 1/180 degree, then for each further point
how far it lies east and north of the one before, in 1/1000 degree.
"""
import pathlib
import struct
import sys
import zlib

source = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else "/usr/share/magics/10m")
data = pathlib.Path(__file__).parent.parent / "data"


def shapes(path):
    """Parts of each shape of a shapefile, as lists of longitude and latitude."""
    file, at = path.read_bytes(), 100
    while at < len(file):
        length = 2 * struct.unpack(">i", file[at + 4:at + 8])[0]
        record = file[at + 8:at + 8 + length]
        at += 8 + length
        if struct.unpack("<i", record[:4])[0] == 0:
            yield []
            continue
        parts, count = struct.unpack("<ii", record[36:44])
        starts = list(struct.unpack(f"<{parts}i", record[44:44 + 4 * parts])) + [count]
        numbers = struct.unpack(f"<{2 * count}d", record[44 + 4 * parts:44 + 4 * parts + 16 * count])
        points = list(zip(numbers[0::2], numbers[1::2]))
        yield [points[a:b] for a, b in zip(starts, starts[1:])]


def rows(path):
    """Rows of a dBase table."""
    file = path.read_bytes()
    count, header, width = struct.unpack("<IHH", file[4:12])
    fields, at = [], 32
    while file[at] != 13:
        fields.append((file[at:at + 11].split(b"\0")[0].decode(), file[at + 16]))
        at += 32
    for n in range(count):
        record, at, row = file[header + n * width:header + (n + 1) * width], 1, {}
        for name, size in fields:
            row[name] = record[at:at + size].decode("utf-8", "replace").strip()
            at += size
        yield row


def thinned(points, tolerance=0.004):
    """Points of a line without those that lie nearer to the rest than the tolerance, degrees."""
    if len(points) < 3:
        return points
    (x0, y0), (x1, y1) = points[0], points[-1]
    length = ((x1 - x0) ** 2 + (y1 - y0) ** 2) ** 0.5

    def off(p):
        if length == 0:
            return ((p[0] - x0) ** 2 + (p[1] - y0) ** 2) ** 0.5
        return abs((x1 - x0) * (p[1] - y0) - (y1 - y0) * (p[0] - x0)) / length

    far = max(range(1, len(points) - 1), key=lambda i: off(points[i]))
    if off(points[far]) < tolerance:
        return [points[0], points[-1]]
    return thinned(points[:far + 1], tolerance)[:-1] + thinned(points[far:], tolerance)


def split(points):
    """Pieces whose count fits in 16 bits."""
    piece = [points[0]]
    for p in points[1:]:
        piece.append(p)
        if len(piece) == 30000:
            yield piece
            piece = [p]
    yield piece


sys.setrecursionlimit(10000)
places = []
for row in rows(source / "ne_10m_populated_places_simple.dbf"):
    try:
        places.append((int(row["pop_max"]), float(row["latitude"]), float(row["longitude"]), row["nameascii"]))
    except ValueError:
        continue
with open(data / "places.csv", "w") as out:
    for people, lat, lon, name in sorted(places, reverse=True):
        if people > 0:
            out.write(f"{lat:.3f},{lon:.3f},{people},{name.replace(',', ' ')}\n")

words = []
lines = zip(rows(source / "ne_10m_rivers_lake_centerlines.dbf"),
            shapes(source / "ne_10m_rivers_lake_centerlines.shp"))
for row, parts in lines:
    if row["featurecla"] != "River":
        continue
    for part in parts:
        for points in split(thinned(part)):
            first = (round(points[0][0] * 180), round(points[0][1] * 180))
            words += [int(float(row["scalerank"])), len(points), first[0], first[1]]
            before = (round(first[0] / 0.180), round(first[1] / 0.180))
            for lon, lat in points[1:]:
                at = (round(lon * 1000), round(lat * 1000))
                words += [at[0] - before[0], at[1] - before[1]]
                before = at
(data / "rivers.z").write_bytes(zlib.compress(struct.pack(f"<{len(words)}h", *words), 9))
