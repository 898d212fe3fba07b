#!/usr/bin/env python3
"""Derives stars.csv.gz from the star files of the Debian package kstars-data, whose catalogue facts (Hipparcos
and Tycho, public domain) are all that is taken: give its folder. Run once; the build needs only the result.

Columns, in order of right ascension: the step from the star before, 1/10000 hour; declination, 1/1000 degree,
north positive; visual magnitude, 1/100; number in the Henry Draper catalogue, 0 none; proper name where the
star has one. Equator of J2000, places brought to 2000 from the catalogue's epoch; stars to magnitude 6.5. A
star without a number close to one that has one is left out: mostly the same star from the other catalogue, with
another epoch, and otherwise a companion that no eye parts from it.

A star file is a text of 124 bytes, a byte order mark, a version byte, the number of its fields with their
descriptions of 16 bytes, the number of its sky triangles with 12 bytes for each, and 5 bytes on how it was
cut; then records of 32 bytes, in the order that the descriptions tell."""
import gzip
import math
import struct
import sys

FAINTEST = 650  # 1/100 magnitude
TEXT, FIELD, TRIANGLE = 124, 16, 12
YEARS = 2000 - 1991.25
CLOSE = 20  # arc seconds


def records(path, size, cut):
    """The records behind the descriptions of a file."""
    data = open(path, "rb").read()
    assert data[TEXT:TEXT + 2] == b"SK", path
    fields, = struct.unpack_from("<H", data, TEXT + 3)
    at = TEXT + 5 + fields * FIELD
    triangles, = struct.unpack_from("<I", data, at)
    at += 4 + triangles * TRIANGLE + cut
    assert (len(data) - at) % size == 0, path
    return [data[n:n + size] for n in range(at, len(data), size)]


def star(record):
    """Right ascension in hours and declination in degrees of 2000, number, 1/100 magnitude."""
    ra, dec, ra_motion, dec_motion, _, hd, mag = struct.unpack_from("<iiiiiIh", record)
    dec *= 1e-5
    seconds = 0.1 * 0.001 * YEARS / 3600  # degrees from a tenth of a milliarcsecond a year
    ra = ra * 1e-6 + ra_motion * seconds / math.cos(math.radians(dec)) / 15
    return ra % 24, dec + dec_motion * seconds, hd, mag


def text(field):
    return field.split(b"\0")[0].decode("ascii", "replace").strip()


def without_doubles(stars):
    """Of stars in order of right ascension."""
    kept = []
    for n, (ra, dec, hd, mag, name) in enumerate(stars):
        def beside(other):
            east = (other[0] - ra) * 15 * math.cos(math.radians(dec))
            return other[2] and other[3] <= mag + 20 and math.hypot(east, other[1] - dec) * 3600 < CLOSE
        if hd or name or not any(map(beside, stars[max(n - 30, 0):n + 30])):
            kept.append((ra, dec, hd, mag, name))
    return kept


def main(folder, target):
    names = [text(r[8:]) for r in records(folder + "/starnames.dat", 40, 0)]
    named = [star(r) for r in records(folder + "/namedstars.dat", 32, 5)]
    assert len(named) == len(names)
    stars = dict(zip(named, names))
    for record in records(folder + "/unnamedstars.dat", 32, 5):
        stars.setdefault(star(record), "")  # triangles share the stars of their edges
    bright = sorted(s + (name,) for s, name in stars.items() if s[3] <= FAINTEST)
    rows, before = [], 0
    for ra, dec, hd, mag, name in without_doubles(bright):
        place = round(ra * 1e4)
        rows.append("%d,%d,%d,%d,%s\n" % (place - before, round(dec * 1e3), mag, hd, name))
        before = place
    with open(target, "wb") as out, gzip.GzipFile("", "wb", 9, out, 0) as packed:
        packed.write("".join(rows).encode("ascii"))
    print(len(rows), "stars,", sum(not r.endswith(",\n") for r in rows), "named")


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2])
