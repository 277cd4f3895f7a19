#!/usr/bin/env python3
"""Make the table of zonal projections.

Why: The 368 rows follow one rule, and a rule is easier to read than the rows.

What: Gauss-Kruger zones of 6 degrees, 1 to 60, without and with the zone number in the false
easting. The same for zones of 3 degrees, 1 to 64. Then UTM zones 1 to 60, north and south. The
central meridian of zone n is 6n - 3 degrees, of a 3-degree zone 3n degrees, wrapped into
-180..180. A UTM zone has no other parameter, because the projection knows them from the zone.

The 3-degree zones end at 168 degrees west, where Russia ends. They are below the 6-degree zones,
because the first row that fits is taken. Without the zone number every 6-degree zone is also a
3-degree zone.

Run: python3 scripts/catalogue/make_zones.py [--check]
Writes data/prj_def/pj_proj2.csv, or compares it with --check.
"""
import tables

COLUMNS = ("PRJ_NAME", "PRJ_ALIAS", "PROJ", "SOUTH", "ZONE", "LAT_0", "LON_0",
           "K_0", "X_0", "Y_0", "UNITS", "#NOTE")

ZONES = range(1, 61)
NARROW_ZONES = range(1, 65)


def wrapped(longitude):
    return longitude if longitude <= 180 else longitude - 360


def gauss_kruger(caption, zones, meridian):
    for name, millions, note in ((caption, 0, ""),
                                 (caption + " (plus zone)", 1000000,
                                  "zone number in the false easting")):
        for zone in zones:
            yield (name, "GK", "tmerc", "", zone, "=0", "=%d" % wrapped(meridian(zone)),
                   "=1", "=%d" % (500000 + zone * millions), "=0", "m", note)


def utm(caption, south):
    for zone in ZONES:
        yield (caption, "UTM", "utm", south, zone, "", "", "", "", "", "m", "")


def rows():
    yield from gauss_kruger("Gauss-Kruger", ZONES, lambda zone: 6 * zone - 3)
    yield from gauss_kruger("Gauss-Kruger 3-degree", NARROW_ZONES, lambda zone: 3 * zone)
    yield from utm("UTM North", "")
    yield from utm("UTM South", "1")


if __name__ == "__main__":
    tables.write("pj_proj2.csv", COLUMNS, rows())
