#!/usr/bin/env python3
"""Survey the definitions of all EPSG systems against the catalogue.

Why: Users open systems by EPSG code. If the catalogue cannot express a system, the dialog changes
it on Apply. This script finds such systems.

What: The script takes every projected and two-dimensional geographic system that libproj can
write as a PROJ.4 text, and matches it as the dialog does. It lists
 - the different combinations of projection and keys, with the row that they select and the keys
   that do not come back,
 - the different ellipsoids with the row that they select,
 - keys that are lost because the dialog's definitions do not have them.
A lost key is a fault. It is none if libproj gives the same coordinates without it, or if the
dialog leaves it out by design.

Run: python3 scripts/catalogue/survey_epsg.py
Ends with exit code 1 if a system loses a parameter or its ellipsoid, or finds no row without a
known reason.
"""
import collections
import sys

import libproj
import tables

# libproj writes these, but nothing is lost without them.
SILENT = ("no_defs", "type", "wktext")

# Keys that the dialog handles outside the projection: ellipsoid, datum and units.
ELSEWHERE = ("proj", "datum", "ellps", "a", "b", "rf", "units", "nadgrids", "towgs84")

# No row can express these.
WITHOUT_ROW = {"labrd": "needs azi, which the dialog does not have",
               "col_urban": "needs h_0, which the dialog does not have"}

LONGLAT = ("longlat", "latlong")

POINTS = [(longitude, latitude) for longitude in range(-170, 180, 20)
          for latitude in (-70, -41, -12, 3, 33, 49, 64, 85)]


class Group:
    """Systems that are the same for the survey."""

    def __init__(self, example):
        self.example = example
        self.count = 0


def tally(groups, key, code):
    groups.setdefault(key, Group(code)).count += 1


def comes_back(definition, usual, zonal):
    """The row for a definition, and the definition that the dialog writes."""
    row = tables.find_zonal(zonal, definition)
    if row is not None:
        written = {"proj": row["PROJ"]}
        if row["PROJ"] == "utm":
            written["zone"] = row["ZONE"]
        if row["SOUTH"] == "1":
            written["south"] = ""
        written.update({key: tables.twelve_digits(value)
                        for key, value in tables.fixed(row).items()})
        return row, written
    row = tables.find_usual(usual, definition)
    return row, tables.filled(row, definition) if row else {}


def coordinates(definition):
    text = " ".join("+%s=%s" % item if item[1] else "+" + item[0]
                    for item in definition.items())
    return libproj.forward(text + " +ellps=GRS80", POINTS)


def same_coordinates(first, second):
    if first is None or second is None:
        return first is second
    return all(one is None and other is None
               or one is not None and other is not None
               and all(abs(u - v) <= 1e-6 for u, v in zip(one, other))
               for one, other in zip(first, second))


def show(title, groups):
    print("\n%s: %d" % (title, len(groups)))
    for key, group in sorted(groups.items(), key=lambda item: str(item[0])):
        print("  %5d  %s  (EPSG:%s)" % (group.count, "  ".join(key), group.example))


def main():
    usual = tables.read("pj_proj1.csv")
    zonal = tables.read("pj_proj2.csv")
    ellipsoids = tables.read("pj_ellps.csv")
    combinations, shapes, dropped, kept_out = {}, {}, {}, {}
    faults = []
    counts = collections.Counter()
    for code in libproj.epsg_codes():
        text = libproj.epsg_definition(code)
        if text is None:
            counts["without a PROJ.4 text"] += 1
            continue
        counts["surveyed"] += 1
        given = libproj.parameters(text)
        definition = tables.known(given)
        proj = definition["proj"]

        for key in given:
            if key not in tables.KNOWN_KEYS + SILENT + ("k", "R"):
                tally(dropped, ("+" + key, "with " + proj), code)
        if "nadgrids" in given:
            tally(dropped, ("+nadgrids=" + given["nadgrids"],
                            "read, but not written by the panels"), code)

        if "datum" not in definition:
            shape = " ".join("+%s=%s" % (key, given[key])
                             for key in ("R", "a", "b", "rf", "ellps") if key in given)
            row = tables.find_ellipsoid(ellipsoids, definition)
            caption = row["ELLPS_NAME"] if row else "NONE: WGS 84 would be taken"
            tally(shapes, (shape, "->", caption), code)
            if row is None:
                faults.append("EPSG:%s: no ellipsoid for %s" % (code, shape))
            elif not row["ELLPS"]:
                # The dialog reads its own output like this.
                again = {key.lower(): tables.twelve_digits(row[key])
                         for key in ("A", "B", "RF") if row[key]}
                if tables.find_ellipsoid(ellipsoids, again) is None:
                    faults.append("EPSG:%s: %s is not found once written" % (code, caption))

        numbers = {key: value for key, value in definition.items()
                   if key not in ELSEWHERE}
        if proj in LONGLAT:
            tally(combinations, (proj, "->", "appended by the library"), code)
            continue
        row, written = comes_back(definition, usual, zonal)
        keys = " ".join(sorted(numbers))
        if row is None:
            tally(combinations, (proj, keys, "-> nothing:",
                                 WITHOUT_ROW.get(proj, "NO KNOWN REASON")), code)
            if proj not in WITHOUT_ROW:
                faults.append("EPSG:%s: no row for %s" % (code, text))
            continue
        lost = sorted(key for key in numbers if key not in written)
        note = "without " + " ".join(lost) if lost else ""
        tally(combinations, (proj, keys, "->", row["PRJ_NAME"], note), code)
        before = dict(numbers, proj=proj)
        if not same_coordinates(coordinates(before), coordinates(written)):
            faults.append("EPSG:%s: comes back changed as \"%s\": %s" % (
                code, row["PRJ_NAME"], text))
        elif lost:
            tally(kept_out, (proj, " ".join(lost), "not heeded by libproj"), code)
        if row in zonal and given.get("units", "m") != "m":
            faults.append("EPSG:%s: a zone in units of %s" % (code, given["units"]))

    show("Projections and keys", combinations)
    show("Ellipsoids", shapes)
    show("Parameters left out without effect", kept_out)
    show("Keys that the dialog's definitions do not have", dropped)
    print()
    for fault in faults:
        print(fault)
    print("%d systems surveyed, %d without a PROJ.4 text, %d faults" % (
        counts["surveyed"], counts["without a PROJ.4 text"], len(faults)))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
