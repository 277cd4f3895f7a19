#!/usr/bin/env python3
"""Make the table of known systems.

Why: A row has two texts with the same meaning in two notations. Both are made from the same
numbers, so they cannot differ. One line of the input confirms a row.

What: WGS 84, the Gauss-Kruger zones 2 to 32 of GSK-2011 and Pulkovo 1942, and the cadastral
systems of data/known_systems/cadastre.csv, in table order. Each zone is there twice, with the
zone number in the false easting and without ("N"). The two kinds write the numbers of the WKT
differently, because the files of the users of these systems do so.

Run: python3 scripts/known_systems/make_known_systems.py [--check]
Writes src/interchange/known_systems_data.cpp. With --check it compares and fails if the file
differs.
"""
import csv
import pathlib
import re
import sys
import typing

ROOT = pathlib.Path(__file__).resolve().parents[2]
SOURCE = ROOT / "data" / "known_systems" / "cadastre.csv"
TARGET = ROOT / "src" / "interchange" / "known_systems_data.cpp"

FIRST_CADASTRAL_ROW = 125
COUNT = 442


class Geographic(typing.NamedTuple):
    """The geographic part of a system: names and spheroid of the WKT, datum and ellipsoid of the
    definition."""
    name: str
    datum: str
    spheroid: str
    a: str
    rf: str
    proj4: str


SHIFT_1942 = "+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +ellps=krass"
SHIFT_1995 = "+towgs84=24.82,-131.21,-82.66,0,0,0.16,-0.12 +ellps=krass"

WGS_1984 = Geographic("GCS_WGS_1984", "D_WGS_1984", "WGS_1984", "6378137", "298.257223563",
                      "+datum=WGS84 +ellps=WGS84")
GSK_2011 = Geographic("GCS_RUSSIA_2011", "D_RUSSIA_2011", "S_RUSSIA_2011",
                      "6378136.5", "298.2564151",
                      "+towgs84=0.013,-0.092,-0.03,-0.0017,0.0036,-0.0043,0.0074 +ellps=GSK2011")
PULKOVO_1942 = Geographic("GCS_Pulkovo_1942", "D_Pulkovo_1942", "Krasovsky_1940",
                          "6378245", "298.3", SHIFT_1942)
PULKOVO_1995 = Geographic("GCS_Pulkovo_1995", "D_Pulkovo_1995", "Krasovsky_1940",
                          "6378245", "298.3", SHIFT_1995)
MOSCOW = Geographic("GCS_MOSCOW_BESSEL", "D_MOSCOW_BESSEL", "S_RUSSIA_BESSEL",
                    "6377397.155", "299.15281285", "+datum=msc_bess +ellps=bessel")

SHIFTS = {"1942": PULKOVO_1942, "1995": PULKOVO_1995, "moscow": MOSCOW}

# The files of this system name Pulkovo 1995, but its definition has always had the shift of 1942.
MIXED = "Russia_Cadastre_20_1_N"


class Notation(typing.NamedTuple):
    """How one kind of rows writes numbers in the WKT."""
    whole: str  # a whole number
    degree: str  # the unit, in radians

    def number(self, text):
        return text if "." in text else self.whole % text


WITH_POINT = Notation("%s.0", "0.0174532925199433")
WITHOUT_POINT = Notation("%s", "0.0174532925199432955")


def geogcs(side, notation):
    number = notation.number
    return ('GEOGCS["%s",DATUM["%s",SPHEROID["%s",%s,%s]],PRIMEM["Greenwich",%s],UNIT["Degree",%s]]'
            % (side.name, side.datum, side.spheroid, number(side.a), number(side.rf),
               number("0"), notation.degree))


def row(wkt, proj4, confirmed=True):
    mark = "" if confirmed else ", false"
    return '  {R"(%s)", "%s"%s},' % (wkt, proj4, mark)


def projected(name, side, numbers, authority, notation=WITH_POINT, confirmed=True):
    """A row. The numbers are lon_0, lat_0, x_0 and y_0 as the definition writes them."""
    lon_0, lat_0, x_0, y_0 = numbers
    parameters = "".join(',PARAMETER["%s",%s]' % (key, notation.number(value)) for key, value in (
        ("False_Easting", x_0), ("False_Northing", y_0), ("Central_Meridian", lon_0),
        ("Scale_Factor", "1"), ("Latitude_Of_Origin", lat_0)))
    wkt = 'PROJCS["%s",%s,PROJECTION["Gauss_Kruger"]%s,UNIT["Meter",%s]%s]' % (
        name, geogcs(side, notation), parameters, notation.number("1"),
        ',AUTHORITY["%s",%s]' % authority if authority else "")
    proj4 = ("+proj=tmerc +lon_0=%s +lat_0=%s +x_0=%s +y_0=%s +k_0=1 %s "
             "+units=m +lon_wrap=45 +no_defs" % (*numbers, side.proj4))
    return row(wkt, proj4, confirmed)


def zones(name, side, authority):
    """Zones 2 to 32; `authority` gives the authority of an EPSG code, or None."""
    for zone in range(2, 33):
        meridian = 6 * zone - 3
        meridian = str(meridian if meridian <= 180 else meridian - 360)
        yield projected(name % zone, side, (meridian, "0", str(zone * 1000000 + 500000), "0"),
                        authority(28400 + zone))
        yield projected(name % zone + "N", side, (meridian, "0", "500000", "0"),
                        authority(28460 + zone), WITHOUT_POINT)


def cadastral():
    with open(SOURCE, newline="", encoding="ascii") as stream:
        lines = list(csv.DictReader(stream, restval="", strict=True))
    for place, line in enumerate(lines, FIRST_CADASTRAL_ROW):
        numbers = tuple(line[key] for key in ("lon_0", "lat_0", "x_0", "y_0"))
        if (line["row"] != str(place) or line["shift"] not in SHIFTS
                or line["confidence"] not in ("published", "derived", "guess")
                or not re.fullmatch(r"Russia_Cadastre_\w+", line["name"])
                or not re.fullmatch(r"[1-9]\d{5}", line["authority"])
                or not all(re.fullmatch(r"-?(0|[1-9]\d*)(\.\d*[1-9])?", text) for text in numbers)):
            sys.exit("%s: row %d, %s: not written like the other rows"
                     % (SOURCE, place, line["name"]))
        side = SHIFTS[line["shift"]]
        if line["name"] == MIXED:
            side = PULKOVO_1995._replace(proj4=side.proj4)
        yield projected(line["name"], side, numbers, ("CUSTOM", line["authority"]),
                        confirmed=line["confidence"] != "guess")
    for key in ("name", "authority"):
        if len({line[key] for line in lines}) != len(lines):
            sys.exit("%s: the same %s is there twice" % (SOURCE, key))


def rows():
    yield row(geogcs(WGS_1984, WITH_POINT),
              "+proj=longlat %s +lon_wrap=45 +no_defs" % WGS_1984.proj4)
    yield from zones("GSK-2011_GK-%d", GSK_2011, lambda code: None)
    yield from zones("Pulkovo_1942_GK_Zone_%d", PULKOVO_1942, lambda code: ("EPSG", code))
    yield from cadastral()


HEAD = """\
// clang-format off
// Made by scripts/known_systems/make_known_systems.py; change its input, not this.
#include "interchange/known_systems.h"

namespace zu {

constinit std::array<known_system, known_systems_count> const known_systems{{
"""

FOOT = """\
}};

}  // namespace zu
"""


def main():
    if sys.argv[1:] not in ([], ["--check"]):
        sys.exit(__doc__)
    table = list(rows())
    if len(table) != COUNT:
        sys.exit("%s: makes %d rows, not %d" % (SOURCE, len(table), COUNT))
    text = (HEAD + "\n".join(table) + "\n" + FOOT).encode("ascii")
    if not sys.argv[1:]:
        TARGET.write_bytes(text)
    elif not TARGET.exists() or TARGET.read_bytes() != text:
        sys.exit("%s differs from the output for %s" % (TARGET, SOURCE))


if __name__ == "__main__":
    main()
