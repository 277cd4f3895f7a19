#!/usr/bin/env python3
"""Check the table of usual projections against libproj.

Why: On Apply the dialog writes exactly the parameters that the chosen row shows. If libproj uses
a key and no row shows it, the key is lost without a message. If libproj ignores a shown key, its
edit does nothing.

What: For every operation of libproj that is a map projection,
 1. finds by trial which keys change coordinates, with the same random numbers each time;
 2. checks that every shown key is one of them;
 3. for every combination of these keys that libproj accepts, matches the definition and writes
    it back as the dialog does. It must give the same plane coordinates, on an ellipsoid and on a
    sphere;
 4. checks that captions are unique, limits make sense, and no projection is missing.
The exceptions are listed below with the reason.

Run: python3 scripts/catalogue/check_projections.py
If something is wrong, prints one line for each difference and ends with exit code 1.
"""
import itertools
import random
import sys

import libproj
import tables

KEYS = tables.NUMERIC_KEYS + ("south",)

VALUES = {
    "lat_1": ("30", "50", "-20", "0", "90"), "lat_2": ("60", "45", "-40", "30"),
    "lat_ts": ("40", "-60", "90", "0", "-90"),
    "lat_0": ("0", "52", "90", "-90", "-30", "10"),
    "lon_0": ("25", "-100"), "lonc": ("40", "-70"),
    "alpha": ("30", "-40", "10", "90"), "k_0": ("0.9996", "0.5", "2"),
    "x_0": ("500000",), "y_0": ("100000",), "south": ("",),
}

SHAPES = ("+ellps=WGS84", "+R=6371000")

POINTS = [(longitude, latitude) for longitude in range(-170, 180, 34)
          for latitude in (-80, -41, -12, 3, 33, 52, 64, 85)]

TRIALS = 300

# Operations that are not map projections.
CONVERSIONS = set(
    "affine axisswap cart defmodel deformation geoc geocent geogoffset helmert "
    "hgridshift horner molobadekas molodensky noop pipeline pop push set "
    "tinshift topocentric unitconvert vertoffset vgridshift xyzgridshift "
    "latlon latlong lonlat longlat".split())

# Projections that need keys outside the dialog's parameters, or are in another table.
LEFT_OUT = {
    "chamb": "three control points", "col_urban": "h_0", "fouc_s": "n", "geos": "h",
    "gn_sinu": "m and n", "imw_p": "lon_1", "isea": "orient, resolution, mode",
    "labrd": "azi", "lsat": "lsat and path", "misrsom": "path", "nsper": "h",
    "ob_tran": "o_proj", "oea": "m, n and theta", "sch": "plat_0 and others",
    "tpeqd": "lon_1 and lon_2", "tpers": "h, tilt and azi",
    "urm5": "n", "urmfps": "n", "utm": "in the table of zones",
}

# Combinations that cannot come back the same: (projection, keys given, keys
# not given, reason).
ACCEPTED = (
    ("ocea", (), ("alpha",), "the form by two points needs lon_1 and lon_2"),
    ("omerc", (), ("alpha",), "the form by two points needs lon_1 and lon_2"),
)
# The dialog shows these although libproj has them built in. Otherwise a projection file would say
# zero.
KEPT = {"nzmg": ("lat_0", "lon_0", "x_0", "y_0")}


def text(proj, keys, shape):
    """A definition for libproj."""
    parts = ["+proj=" + proj]
    for key, value in keys.items():
        if key != "proj":
            parts.append("+%s=%s" % (key, value) if value else "+" + key)
    return " ".join(parts + [shape])


def images(proj, keys, shape):
    return libproj.forward(text(proj, keys, shape), POINTS)


def same(first, second):
    if first is None or second is None:
        return first is second
    for one, other in zip(first, second):
        if one is None or other is None:
            if one is not other:
                return False
        elif any(abs(u - v) > 1e-6 + 1e-12 * abs(u) for u, v in zip(one, other)):
            return False
    return True


def effective_keys(proj):
    """Keys that change the coordinates for some values of the other keys."""
    chance = random.Random(proj)
    found = set()
    for _ in range(TRIALS):
        keys = {key: chance.choice(VALUES[key]) for key in KEYS
                if chance.random() < 0.5}
        shape = chance.choice(SHAPES)
        base = images(proj, keys, shape)
        if base is None or not any(base):
            continue
        for key in keys:
            if key in found:
                continue
            fewer = {name: value for name, value in keys.items() if name != key}
            trials = [fewer] + [dict(keys, **{key: value}) for value in VALUES[key]
                                if value != keys[key]]
            for trial in trials:
                moved = images(proj, trial, shape)
                if moved is not None and any(moved) and not same(base, moved):
                    found.add(key)
                    break
    return [key for key in KEYS if key in found]


def accepted(proj, keys):
    return any(proj == name and all(key in keys for key in given)
               and not any(key in keys for key in missing)
               for name, given, missing, _ in ACCEPTED)


def check_round_trip(proj, rows, effective, problems):
    """Every combination of the effective keys, with four sets of values."""
    chance = random.Random(proj)
    reported = set()
    for count in range(len(effective) + 1):
        for chosen in itertools.combinations(effective, count):
            if accepted(proj, chosen):
                continue
            for _ in range(4):
                keys = {key: chance.choice(VALUES[key]) for key in chosen}
                definition = dict(keys, proj=proj)
                row = tables.find_usual(rows, definition)
                written = tables.filled(row, definition) if row else {}
                for shape in SHAPES:
                    base = images(proj, keys, shape)
                    if base is None or not any(base) or chosen in reported:
                        continue
                    if not row or not same(base, images(proj, written, shape)):
                        reported.add(chosen)
                        problems.append("%s: comes back changed as \"%s\": %s" % (
                            proj, row["PRJ_NAME"] if row else "nothing",
                            text(proj, keys, shape)))


def check_cells(rows, problems):
    captions = set()
    for row in rows:
        caption = row["PRJ_NAME"].strip().lower()
        if not caption or caption in captions:
            problems.append("caption missing or twice: \"%s\"" % row["PRJ_NAME"])
        captions.add(caption)
        for pair in (("lon_0", "lonc"), ("lat_1", "lat_ts")):
            if all(key in tables.shown(row) for key in pair):
                problems.append("%s: shows both %s and %s" % ((row["PRJ_NAME"],) + pair))
        if tables.fixed(row):
            problems.append("%s: a fixed value would not be written" % row["PRJ_NAME"])
        for key in tables.shown(row):
            cell = row[key.upper()]
            if cell == "any":
                continue
            low, _, high = cell.partition("..")
            if not float(low) < float(high) or (key == "k_0" and float(low) <= 0):
                problems.append("%s: limits of %s: %s" % (row["PRJ_NAME"], key, cell))


def main():
    rows = tables.read("pj_proj1.csv")
    problems = []
    check_cells(rows, problems)
    by_proj = {}
    for row in rows:
        by_proj.setdefault(row["PROJ"], []).append(row)
    names = [name for name, _ in libproj.operations()]
    for proj in by_proj:
        if proj not in names:
            problems.append("%s: libproj has no such projection" % proj)
    for proj in names:
        if proj in CONVERSIONS or proj in LEFT_OUT:
            if proj in by_proj:
                problems.append("%s: should not be in the table" % proj)
            continue
        if proj not in by_proj:
            problems.append("%s: not in the table" % proj)
            continue
        effective = effective_keys(proj)
        offered = {key for row in by_proj[proj] for key in tables.shown(row)}
        if any(row["SOUTH"] == "1" for row in by_proj[proj]):
            offered.add("south")
        for key in KEYS:
            if key in offered and key not in effective and key not in KEPT.get(proj, ()):
                problems.append("%s: shows %s, which has no effect" % (proj, key))
            if key in effective and key not in offered and not accepted(proj, ()):
                problems.append("%s: does not show %s, which has an effect" % (proj, key))
        check_round_trip(proj, rows, effective, problems)
    for problem in problems:
        print(problem)
    print("%d rows of %d projections checked, %d differences" % (
        len(rows), len(by_proj), len(problems)))
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
