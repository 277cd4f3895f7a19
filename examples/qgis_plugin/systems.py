"""QGIS's coordinate systems as PROJ.4 definitions, and back, with their datum shifts.

QGIS drops the seven numbers when it makes a system from PROJ.4 text, and when it writes a
system as PROJ.4 text. GDAL keeps them. So a definition goes to QGIS and comes back as WKT,
through GDAL.
"""
import re

from osgeo import osr
from qgis.core import QgsApplication, QgsCoordinateReferenceSystem

from .texts import Error

# WKT has the scale as a factor near 1. So only nine decimals of the parts per million come back.
DECIMALS = 9
SHIFT = re.compile(r"\+towgs84=(\S+)")


def shift_of(definition):
    """The seven numbers of a definition, or zeros if it has none."""
    found = SHIFT.search(definition)
    numbers = [round(float(number), DECIMALS) for number in found[1].split(",")] if found else []
    return numbers + [0.0] * (7 - len(numbers))


def with_shift_rounded(definition):
    if not SHIFT.search(definition):
        return definition
    numbers = ",".join(f"{number:.15g}" for number in shift_of(definition))
    return SHIFT.sub("+towgs84=" + numbers, definition)


def definition_of(crs):
    """The PROJ.4 definition of a coordinate system, or "" if the system is not set."""
    if not crs.isValid():
        return ""
    reference = osr.SpatialReference()
    try:
        # A failure is a result or an exception. One setting for all plug-ins decides which.
        failed = reference.ImportFromWkt(crs.toWkt(QgsCoordinateReferenceSystem.WKT2_2019))
        definition = "" if failed else reference.ExportToProj4()
    except RuntimeError:
        definition = ""
    definition = definition or crs.toProj()
    if not definition:
        raise Error("no text")
    return with_shift_rounded(definition)


def to_be_handed_over(definition):
    """A definition without the parts that stop QGIS from recognising the system."""
    # QGIS does not wrap longitudes.
    pieces = [piece for piece in definition.split() if not piece.startswith("+lon_wrap=")]
    if "+datum=WGS84" in pieces and not any(shift_of(definition)):
        pieces = [piece for piece in pieces if not piece.startswith("+towgs84=")]
    return " ".join(pieces)


def crs_of(definition):
    """The coordinate system of a PROJ.4 definition."""
    reference = osr.SpatialReference()
    try:
        failed = reference.ImportFromProj4(to_be_handed_over(definition))
        wkt = "" if failed else reference.ExportToWkt(["FORMAT=WKT2_2019"])
    except RuntimeError as error:
        raise Error("not taken", error) from error
    crs = QgsCoordinateReferenceSystem.fromWkt(wkt) if wkt else QgsCoordinateReferenceSystem()
    if not crs.isValid():
        raise Error("not taken", definition)
    if shift_of(definition_of(crs)) != shift_of(definition):
        raise Error("shift lost", definition)
    return crs


def saved(crs, name):
    """Saves the coordinate system as a user-defined one of QGIS."""
    number = QgsApplication.coordinateReferenceSystemRegistry().addUserCrs(crs, name)
    own = QgsCoordinateReferenceSystem.fromSrsId(number)
    if number < 0 or not own.isValid():
        raise Error("not saved")
    return own
