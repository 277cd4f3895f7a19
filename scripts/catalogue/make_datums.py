#!/usr/bin/env python3
"""Make the table of datums.

Why: The database of coordinate systems has the shifts of most datums. About two hundred of them
copied by hand would have mistakes that nobody sees.

What: data/prj_def/datum_choice.csv lists the datums in the order of the dialog. A row names an
operation of the database, from the datum to WGS 84, or gives seven numbers. The script converts
the numbers of an operation to those of +towgs84=: metres, arc-seconds, parts per million,
rotations of the position vector. Operations that rotate the frame and not the vector have the
opposite signs of rotation.

The order of rows matters, because a definition without a datum key takes the first row with its
ellipsoid and numbers. So a row without a key comes before rows with a key and the same numbers.
Otherwise an ETRS89 definition would come back as NAD83.

Run: python3 scripts/catalogue/make_datums.py [--check]
Writes data/prj_def/pj_datum.csv, or compares it with --check; needs data/prj_def/pj_ellps.csv.
"""
import libproj
import tables

COLUMNS = ("DATUM_NAME", "DATUM", "SHIFT_X0", "SHIFT_Y0", "SHIFT_Z0", "ROTAT_X0",
           "ROTAT_Y0", "ROTAT_Z0", "SCALE_F0", "ELLPS_ID", "#REGION", "#SOURCE")

# Sign of the rotations in the database against that of +towgs84=.
TRANSLATION, POSITION_VECTOR, COORDINATE_FRAME = 9603, 9606, 9607
ROTATION_SIGN = {TRANSLATION: 0, POSITION_VECTOR: 1, COORDINATE_FRAME: -1}

OPERATION = """
    select h.name, h.method_code, h.source_crs_code,
           h.tx, h.ty, h.tz, h.translation_uom_code,
           h.rx, h.ry, h.rz, h.rotation_uom_code,
           h.scale_difference, h.scale_difference_uom_code
    from helmert_transformation_table h
    join geodetic_crs g on g.auth_name = h.source_crs_auth_name
         and g.code = h.source_crs_code
    join geodetic_datum d on d.auth_name = g.datum_auth_name and d.code = g.datum_code
    where h.auth_name = 'EPSG' and h.code = ? and h.deprecated = 0
      and h.target_crs_auth_name = 'EPSG' and h.target_crs_code = 4326
      and h.epoch is null and h.px is null and d.prime_meridian_code = 8901"""

SECONDS_IN_RADIAN = 206264.80624709636


def plain(number):
    """A number with the digits that the dialog writes, but never a negative zero."""
    return tables.twelve_digits(number + 0.0)


class Database:
    def __init__(self):
        self._connection = libproj.database()
        query = "select code, conv_factor from unit_of_measure where auth_name = 'EPSG'"
        self._units = dict(self._connection.execute(query))

    def _convert(self, value, unit, factor=1.0):
        """A value in basic units, times a factor.

        Seconds and parts per million do not change. A conversion to radians and back would lose
        the last digit.
        """
        if not value:
            return 0.0
        ratio = self._units[unit] * factor
        return value if abs(ratio - 1) < 1e-9 else value * ratio

    def operation(self, code):
        """The seven numbers of an operation and the system it starts from."""
        row = self._connection.execute(OPERATION, (code,)).fetchone()
        if row is None or row[1] not in ROTATION_SIGN:
            raise SystemExit("EPSG:%s is no fit operation to WGS 84" % code)
        _, method, system, tx, ty, tz, length, rx, ry, rz, angle, scale, ratio = row
        sign = ROTATION_SIGN[method]
        shifts = [self._convert(value, length) for value in (tx, ty, tz)]
        turns = [sign * self._convert(value, angle, SECONDS_IN_RADIAN)
                 for value in (rx, ry, rz)]
        return shifts + turns + [self._convert(scale, ratio, 1e6)], system


# The ellipsoids behind the datum keys that libproj writes for EPSG systems.
ELLIPSOID_OF_DATUM = {"WGS84": "WGS84", "NAD83": "GRS80", "NAD27": "clrk66"}


def ellipsoid_id(ellipsoids, system):
    """The table's ellipsoid for an EPSG system or for a key."""
    if isinstance(system, int) or system.startswith("EPSG:"):
        code = system if isinstance(system, int) else system[len("EPSG:"):]
        definition = tables.known(libproj.parameters(libproj.epsg_definition(code)))
        if "datum" in definition:
            definition["ellps"] = ELLIPSOID_OF_DATUM[definition["datum"]]
    else:
        definition = {"ellps": system}
    row = tables.find_ellipsoid(ellipsoids, definition)
    if row is None:
        raise SystemExit("no ellipsoid for %s" % system)
    return row["ELLPS_ID"]


def rows():
    ellipsoids = tables.read("pj_ellps.csv")
    database = Database()
    for choice in tables.read("datum_choice.csv"):
        if choice["OPERATION"]:
            numbers, system = database.operation(int(choice["OPERATION"]))
            source = "EPSG:" + choice["OPERATION"]
        else:
            numbers = [float(number) for number in choice["NUMBERS"].split()]
            system, source = choice["ELLIPSOID"], choice["SOURCE"]
        yield ([choice["DATUM_NAME"], choice["DATUM"]]
               + [plain(number) for number in numbers]
               + [ellipsoid_id(ellipsoids, system), choice["REGION"], source])


if __name__ == "__main__":
    tables.write("pj_datum.csv", COLUMNS, rows())
