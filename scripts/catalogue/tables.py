"""Reads and writes the CSV tables of the catalogue, and has the rules by which the dialog finds the
row of a definition.

Why: All scripts use the same file format, and the checks must find the same row as the dialog.
This is a module for the other scripts.
"""
import csv
import io
import os
import sys

FOLDER = os.path.join(os.path.dirname(os.path.abspath(__file__)),
                      "..", "..", "data", "prj_def")


def read(name):
    """The rows of a table as dictionaries by column."""
    with open(os.path.join(FOLDER, name), newline="", encoding="ascii") as stream:
        return list(csv.DictReader(stream, strict=True))


# The numbers of a projection, which have a column each.
NUMERIC_KEYS = tuple(column.lower() for column in read("pj_proj1.csv")[0] if column not in (
    "PRJ_NAME", "PRJ_ALIAS", "PROJ", "SOUTH", "UNITS", "#NOTE"))

KNOWN_KEYS = NUMERIC_KEYS + ("proj", "zone", "south", "datum", "towgs84", "a",
                             "b", "rf", "ellps", "units", "nadgrids")


def write(name, columns, rows):
    """Write a table. Each row is a dictionary or a sequence in column order. With --check on the
    command line, compare with the existing table and write nothing."""
    if sys.argv[1:] not in ([], ["--check"]):
        sys.exit("usage: %s [--check]" % sys.argv[0])
    text = io.StringIO(newline="")
    writer = csv.writer(text, lineterminator="\n")
    writer.writerow(columns)
    for row in rows:
        if isinstance(row, dict):
            row = [row.get(column, "") for column in columns]
        writer.writerow(row)
    content, path = text.getvalue().encode("ascii"), os.path.join(FOLDER, name)
    if not sys.argv[1:]:
        with open(path, "wb") as stream:
            stream.write(content)
        return
    with open(path, "rb") as stream:
        if stream.read() != content:
            sys.exit("%s differs from the output of %s" % (path, sys.argv[0]))


def known(parameters):
    """The parameters of a definition that the dialog keeps, by the dialog's names."""
    result = {}
    for key, value in parameters.items():
        if key == "k":
            result.setdefault("k_0", value)
        elif key == "R":
            result.setdefault("a", value)
            result.setdefault("b", value)
        elif key in KNOWN_KEYS:
            result[key] = value
    return result


def shown(row):
    """The numeric keys of a projection row that the user can edit."""
    return [key for key in NUMERIC_KEYS
            if row[key.upper()] and not row[key.upper()].startswith("=")]


def fixed(row):
    """The numeric keys of a projection row with a fixed value."""
    return {key: float(row[key.upper()][1:]) for key in NUMERIC_KEYS
            if row.get(key.upper(), "").startswith("=")}


def _admits(row, definition):
    """The conditions that both searches for a row share."""
    if row["SOUTH"] == "1" and "south" not in definition:
        return False
    lat_0 = fixed(row).get("lat_0")
    return lat_0 is None or abs(float(definition.get("lat_0", 0)) - lat_0) < 0.0001


def find_usual(rows, definition):
    """The usual projection row that a definition selects, or None.

    First it looks for a row with all parallels and the scale that the definition gives, then for
    the row that has most of its numbers.
    """
    candidates = [row for row in rows
                  if row["PROJ"].lower() == definition.get("proj", "").lower()
                  and _admits(row, definition)]
    for row in candidates:
        wanted = [key for key in ("lat_1", "lat_2", "lat_ts") if key in definition]
        if "k_0" in definition and "lat_ts" not in definition:
            wanted.append("k_0")
        if all(row[key.upper()] for key in wanted):
            return row
    return max(candidates, default=None, key=lambda row: sum(
        key in definition and bool(row[key.upper()]) for key in NUMERIC_KEYS))


def find_zonal(rows, definition):
    """The zonal row that a definition selects, or None."""
    proj = definition.get("proj", "").lower()
    for row in rows:
        if row["PROJ"] != proj:
            continue
        if proj == "utm":
            if (row["ZONE"] == definition.get("zone")
                    and (row["SOUTH"] == "1") == ("south" in definition)):
                return row
        elif all(key in definition and abs(float(definition[key]) - value) < 1e-6
                 for key, value in fixed(row).items()):
            return row
    return None


def filled(row, definition):
    """What the dialog writes for a usual row: every parameter that the row shows, with the
    value of the definition or a default."""
    result = {"proj": row["PROJ"]}
    if row["SOUTH"] == "1":
        result["south"] = ""
    for key in shown(row):
        value = definition.get(key)
        if value is None:
            value = "1" if key == "k_0" else "0"
            if row["PROJ"] == "lcc":
                if key == "lat_2" or (key == "lat_0" and "lat_2" not in definition):
                    value = definition.get("lat_1", "0")
            elif row["PROJ"] == "stere" and key == "lat_ts":
                lat_0 = definition.get("lat_0", "0")
                value = lat_0 if abs(float(lat_0)) == 90 else "0"
            elif row["PROJ"] == "krovak":
                # The library's constants for the only system with this projection.
                value = {"lat_0": "49.5", "lon_0": repr(24 + 50 / 60),
                         "k_0": "0.9999"}.get(key, value)
        result[key] = value
    return result


def find_ellipsoid(rows, definition):
    """The ellipsoid row that a definition selects, or None."""
    name = definition.get("ellps", "").lower()
    if name:
        for row in rows:
            if row["ELLPS"].lower() == name:
                return row
    if "a" not in definition:
        return None
    a = float(definition["a"])
    b = float(definition["b"]) if "b" in definition else None
    rf = float(definition["rf"]) if "rf" in definition else None
    for row in rows:
        if float(row["A"]) != a:
            continue
        row_b = float(row["B"]) if row["B"] else None
        row_rf = float(row["RF"]) if row["RF"] else None
        if b is not None:
            if row_b is not None:
                if row_b == b:
                    return row
            elif row_rf is not None and a != b and abs(a / (a - b) - row_rf) <= 1e-6:
                return row
        if rf is not None:
            if row_rf is not None:
                if row_rf == rf:
                    return row
            elif row_b is not None and rf and abs((1 - 1 / rf) * a - row_b) <= 1e-6:
                return row
    return None


def twelve_digits(text):
    """A number as the library writes it into a definition."""
    return "%.12g" % float(text)
