#!/usr/bin/env python3
"""Check the tables of datums and ellipsoids.

Why: A wrong sign or unit in a shift moves a map by metres, and nobody sees it in the number.
A row in the wrong place gives a definition another name.

What:
 1. Captions are unique, numbers are numbers, every ellipsoid exists.
 2. The numbers of every row from an EPSG operation equal those of libproj.
 3. If rows have the same ellipsoid and numbers, the first one has no key, except WGS 84. The
    datums that the dialog asks for by caption are there.
 4. Every datum key of libproj has a row. Its numbers are libproj's, unless it is a grid.

Run: python3 scripts/catalogue/check_datums.py
If something is wrong, prints one line for each difference and ends with exit code 1.
"""
import re
import sys

import libproj
import tables

NUMBERS = ("SHIFT_X0", "SHIFT_Y0", "SHIFT_Z0", "ROTAT_X0", "ROTAT_Y0", "ROTAT_Z0",
           "SCALE_F0")

REQUIRED = ("WGS84", "PULKOVO_1942", "PULKOVO_1995", "GSK_2011", "MOSCOW_BESSEL")

# Keys of libproj with a grid instead of a shift, then those with a shift.
KEYS_WITH_GRID = ("NAD27", "potsdam")
KEYS_WITH_SHIFT = ("WGS84", "GGRS87", "NAD83", "carthage", "hermannskogel", "ire65",
                   "nzgd49", "OSGB36")


def numbers(row):
    return [float(row[column]) for column in NUMBERS]


def numbers_of_operation(code):
    """The seven numbers of libproj's pipeline for an EPSG operation."""
    text = libproj.epsg_operation(code)
    if text is None:
        return None
    step = re.search(r"\+proj=helmert[^@]*?(?=\+step|$)", text)
    if step is None:
        # libproj leaves out the step if there is no shift.
        return [0.0] * 7
    keys = libproj.parameters(step.group())
    sign = -1 if keys.get("convention") == "coordinate_frame" else 1
    return ([float(keys.get(key, 0)) for key in ("x", "y", "z")]
            + [sign * float(keys.get(key, 0)) for key in ("rx", "ry", "rz")]
            + [float(keys.get("s", 0))])


def plane(datum):
    """A point of WGS 84 in Mercator's projection on a datum."""
    return libproj.forward("+proj=merc " + datum, [(22.0, 38.0)])


def check_order(rows, problems):
    first = {}
    for row in rows:
        same = first.setdefault((row["ELLPS_ID"], tuple(numbers(row))), row)
        if same is not row and same["DATUM"] and same["DATUM"] != "WGS84":
            problems.append("\"%s\" would come back as \"%s\", which has a key" % (
                row["DATUM_NAME"], same["DATUM_NAME"]))


def check_keys(rows, ellipsoids, problems):
    by_key = {row["DATUM"]: row for row in reversed(rows) if row["DATUM"]}
    for key in KEYS_WITH_GRID + KEYS_WITH_SHIFT:
        if key not in by_key:
            problems.append("no row for libproj's key %s" % key)
        elif key in KEYS_WITH_SHIFT:
            # libproj does not tell the shift of a key, so this compares coordinates.
            row = by_key[key]
            explicit = "+ellps=%s +towgs84=%s" % (
                ellipsoids[row["ELLPS_ID"]]["ELLPS"],
                ",".join(row[column] for column in NUMBERS))
            if plane("+datum=" + key) != plane(explicit):
                problems.append("%s: libproj's +datum=%s is another" % (explicit, key))


def main():
    rows = tables.read("pj_datum.csv")
    ellipsoids = {row["ELLPS_ID"]: row for row in tables.read("pj_ellps.csv")}
    problems = []
    captions = set()
    for row in rows:
        caption = row["DATUM_NAME"]
        if not caption or caption.lower() in captions:
            problems.append("caption missing or twice: \"%s\"" % caption)
        captions.add(caption.lower())
        if row["ELLPS_ID"] not in ellipsoids:
            problems.append("%s: no ellipsoid %s" % (caption, row["ELLPS_ID"]))
        code = re.fullmatch(r"EPSG:(\d+)", row["#SOURCE"])
        if code:
            theirs = numbers_of_operation(code.group(1))
            if theirs is None or any(abs(one - other) > 1e-9 * max(1, abs(other))
                                     for one, other in zip(numbers(row), theirs)):
                problems.append("%s: %s, but libproj has %s for %s" % (
                    caption, numbers(row), theirs, row["#SOURCE"]))
    for caption in REQUIRED:
        if caption.lower() not in captions:
            problems.append("no row \"%s\"" % caption)
    check_order(rows, problems)
    check_keys(rows, ellipsoids, problems)
    for problem in problems:
        print(problem)
    print("%d datums on %d ellipsoids checked, %d differences" % (
        len(rows), len({row["ELLPS_ID"] for row in rows}), len(problems)))
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
