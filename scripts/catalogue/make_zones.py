#!/usr/bin/env python3
"""Make the table of zonal projections.

Why: its 240 rows follow one rule, and a rule is easier to read than the rows.

What: Gauss-Kruger zones 1 to 60 with the plain false easting and with the zone
number in front of it, then UTM zones 1 to 60, north and south. The central
meridian of zone n is 6n - 3 degrees, wrapped into -180..180. A UTM zone has no
other parameter: the projection knows them from the zone.

Run: python3 scripts/catalogue/make_zones.py [--check]
Writes data/prj_def/pj_proj2.csv, or compares it with --check.
"""
import tables

COLUMNS = ("PRJ_NAME", "PRJ_ALIAS", "PROJ", "SOUTH", "ZONE", "LAT_0", "LON_0",
           "K_0", "X_0", "Y_0", "UNITS", "#NOTE")

ZONES = range(1, 61)


def meridian(zone):
    longitude = 6 * zone - 3
    return longitude if longitude <= 180 else longitude - 360


def gauss_kruger(caption, alias, false_easting, note):
    for zone in ZONES:
        yield (caption, alias, "tmerc", "", zone, "=0", "=%d" % meridian(zone),
               "=1", "=%d" % false_easting(zone), "=0", "m", note)


def utm(caption, south):
    for zone in ZONES:
        yield (caption, "UTM", "utm", south, zone, "", "", "", "", "", "m", "")


def rows():
    yield from gauss_kruger("Gauss-Kruger", "GK", lambda zone: 500000, "")
    yield from gauss_kruger("Gauss-Kruger (plus zone)", "GK",
                            lambda zone: 500000 + zone * 1000000,
                            "zone number in the false easting")
    yield from utm("UTM North", "")
    yield from utm("UTM South", "1")


if __name__ == "__main__":
    tables.write("pj_proj2.csv", COLUMNS, rows())
