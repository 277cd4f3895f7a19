#!/usr/bin/env python3
"""Make the table of ellipsoids.

Why: If the ellipsoid of a definition is not in the table, the dialog shows WGS 84, and Apply
would move the coordinates. So the table has all ellipsoids that libproj knows by key, and all
that it writes by their axes in the definitions of EPSG systems.

What: First the ellipsoids that our users meet most, then the others of libproj, then those of
EPSG, then spheres. A definition finds its ellipsoid by exactly the number after +a=. So
 - the numbers are those of libproj's texts,
 - an ellipsoid with more than twelve digits has a second row with twelve digits. The dialog
   writes twelve, and must find its own output again.

Run: python3 scripts/catalogue/make_ellipsoids.py [--check]
Writes data/prj_def/pj_ellps.csv, or compares it with --check. Other tables refer to ELLPS_ID: run
make_datums.py afterwards.
"""
import libproj
import tables

COLUMNS = ("ELLPS_ID", "ELLPS_NAME", "ELLPS", "A", "B", "RF", "#SOURCE")

FIRST = ("krass", "GSK2011", "PZ90", "WGS84", "GRS80", "bessel", "walbeck",
         "SGS85", "WGS72", "intl")

# Captions for libproj's keys. libproj's descriptions are less readable.
CAPTIONS = {
    "krass": "Krasovsky 1940", "GSK2011": "GSK-2011", "PZ90": "PZ-90",
    "WGS84": "WGS 84", "GRS80": "GRS 1980", "bessel": "Bessel 1841",
    "walbeck": "Walbeck 1819", "SGS85": "Soviet Geodetic System 1985",
    "WGS72": "WGS 72", "intl": "International 1924 (Hayford)",
    "MERIT": "MERIT 1983", "IAU76": "IAU 1976", "airy": "Airy 1830",
    "APL4.9": "Applied Physics Laboratory 1965",
    "NWL9D": "Naval Weapons Laboratory 9D", "mod_airy": "Airy Modified",
    "andrae": "Andrae 1876", "danish": "Andrae 1876 (Denmark, Iceland)",
    "aust_SA": "Australian National, South American 1969",
    "GRS67": "GRS 1967", "bess_nam": "Bessel 1841 (Namibia)",
    "clrk66": "Clarke 1866", "clrk80": "Clarke 1880 Modified",
    "clrk80ign": "Clarke 1880 (IGN)",
    "CPM": "Commission des Poids et Mesures 1799",
    "delmbr": "Delambre 1810 (Belgium)", "engelis": "Engelis 1985",
    "evrst30": "Everest 1830", "evrst48": "Everest 1948 (Modified)",
    "evrst56": "Everest 1956 (India)", "evrst69": "Everest 1969 (RSO)",
    "evrstSS": "Everest (Sabah and Sarawak)", "fschr60": "Fischer 1960 (Mercury)",
    "fschr60m": "Fischer 1960 Modified", "fschr68": "Fischer 1968",
    "helmert": "Helmert 1906", "hough": "Hough 1960", "kaula": "Kaula 1961",
    "lerch": "Lerch 1979", "mprts": "Maupertuis 1738",
    "new_intl": "New International 1967", "plessis": "Plessis 1817 (France)",
    "SEasia": "Southeast Asia", "WGS60": "WGS 60", "WGS66": "WGS 66",
    "sphere": "Sphere, R = 6370997 m",
}

# Not in the database: numbers that other software writes and that have no key.
EXTRA = (
    ("PZ-90 (inverse flattening 298.257839)", "6378136", "", "298.257839",
     "projection files"),
    ("Bessel 1841 (inverse flattening 299.15281285)", "6377397.155", "",
     "299.15281285", "projection files of the Moscow system"),
    ("Sphere, R = 6370000 m", "6370000", "6370000", "", "ESRI:102068"),
    ("Sphere, R = 6371008.7714 m (mean radius)", "6371008.7714", "6371008.7714", "",
     "ESRI:53035"),
)

ELLIPSOID_OF_SYSTEM = """
    select e.code, e.name from {table}
    join geodetic_datum d on d.auth_name = g.datum_auth_name and d.code = g.datum_code
    join ellipsoid e on e.auth_name = d.ellipsoid_auth_name and e.code = d.ellipsoid_code
    where {system}.auth_name = 'EPSG' and {system}.code = ?"""

GEOGRAPHIC = ELLIPSOID_OF_SYSTEM.format(table="geodetic_crs g", system="g")
PROJECTED = ELLIPSOID_OF_SYSTEM.format(
    table="projected_crs p join geodetic_crs g on g.auth_name = p.geodetic_crs_auth_name"
          " and g.code = p.geodetic_crs_code", system="p")


def plain(number):
    """The shortest text of the number in a text, for the same double."""
    text = repr(float(number)) if number else ""
    return text[:-2] if text.endswith(".0") else text


def by_key():
    known = {ellipsoid.key: ellipsoid for ellipsoid in libproj.ellipsoids()}
    keys = list(FIRST) + sorted(set(known) - set(FIRST) - {"sphere"},
                                key=lambda key: CAPTIONS.get(key, key).lower())
    for key in keys + ["sphere"]:
        row = known[key]
        yield (CAPTIONS.get(key, row.name), key, plain(row.a), plain(row.b),
               plain(row.rf), "proj -le")


def by_axes():
    """The ellipsoids that libproj writes by their axes, with the lowest code."""
    found = {}
    connection = libproj.database()
    for code in libproj.epsg_codes():
        definition = libproj.epsg_definition(code)
        keys = tables.known(libproj.parameters(definition)) if definition else {}
        if "a" not in keys:
            continue
        shape = tuple(plain(keys.get(key)) for key in ("a", "b", "rf"))
        row = (connection.execute(GEOGRAPHIC, (code,)).fetchone()
               or connection.execute(PROJECTED, (code,)).fetchone())
        if shape not in found or row[0] < found[shape][0]:
            found[shape] = row
    connection.close()
    ellipsoids = []
    spheres = []
    for (a, b, rf), (code, name) in found.items():
        if a == b:
            # Web maps are on WGS 84 but calculate on a sphere.
            web = a == "6378137"
            spheres.append((float(a), ("Sphere, R = %s m%s" % (a, " (web maps)" * web),
                                       "", a, b, rf,
                                       "EPSG:%d" % (7059 if web else code))))
        else:
            ellipsoids.append((name, (name, "", a, b, rf, "EPSG:%d" % code)))
    return ([row for _, row in sorted(ellipsoids)],
            [row for _, row in sorted(spheres)])


def rows():
    keyed = list(by_key())
    extra = [(name, "", a, b, rf, source) for name, a, b, rf, source in EXTRA]
    named, spheres = by_axes()
    near = [row for row in extra if row[2] != row[3]]
    near += [row for row in named if row[0] == "PZ-90"]
    result = keyed[:len(FIRST)] + near + keyed[len(FIRST):-1]
    result += [row for row in named if row not in near]
    result += keyed[-1:] + spheres + [row for row in extra if row[2] == row[3]]
    captions = {caption.lower() for caption, key, *_ in keyed}
    for position, (caption, key, a, b, rf, source) in enumerate(result):
        if not key and caption.lower() in captions:
            caption += " (EPSG)"
        result[position] = (caption, key, a, b, rf, source)
    for caption, key, a, b, rf, source in list(result):
        short = tuple(tables.twelve_digits(number) if number else ""
                      for number in (a, b, rf))
        if not key and any(number and float(number) != float(digits)
                           for number, digits in zip((a, b, rf), short)):
            result.append((caption + " (12 digits)", "") + short + (source + ", as written",))
    return [(number,) + row for number, row in enumerate(result, 1)]


if __name__ == "__main__":
    tables.write("pj_ellps.csv", COLUMNS, rows())
