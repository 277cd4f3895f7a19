"""The calls of libproj that the catalogue scripts need, through ctypes.

Why: The catalogue must agree with the library that will read the definitions. So the scripts ask
that library and have no second list.
This is a module for the other scripts.
"""
import ctypes
import ctypes.util
import os
import sqlite3
from collections import namedtuple

PROJ_DB = os.environ.get("PROJ_DB", "/usr/share/proj/proj.db")

_lib = ctypes.CDLL(ctypes.util.find_library("proj") or "libproj.so.25")


class _Coord(ctypes.Structure):
    _fields_ = [("v", ctypes.c_double * 4)]


class _Operation(ctypes.Structure):
    _fields_ = [("id", ctypes.c_char_p), ("proj", ctypes.c_void_p),
                ("descr", ctypes.POINTER(ctypes.c_char_p))]


class _Ellipsoid(ctypes.Structure):
    _fields_ = [("id", ctypes.c_char_p), ("major", ctypes.c_char_p),
                ("ell", ctypes.c_char_p), ("name", ctypes.c_char_p)]


def _declare(name, result, *arguments):
    function = getattr(_lib, name)
    function.restype = result
    function.argtypes = arguments
    return function


_PTR = ctypes.c_void_p
_context_create = _declare("proj_context_create", _PTR)
_log_level = _declare("proj_log_level", ctypes.c_int, _PTR, ctypes.c_int)
_create = _declare("proj_create", _PTR, _PTR, ctypes.c_char_p)
_from_database = _declare("proj_create_from_database", _PTR, _PTR, ctypes.c_char_p,
                          ctypes.c_char_p, ctypes.c_int, ctypes.c_int, _PTR)
_as_proj_string = _declare("proj_as_proj_string", ctypes.c_char_p, _PTR, _PTR,
                           ctypes.c_int, _PTR)
_trans = _declare("proj_trans", _Coord, _PTR, ctypes.c_int, _Coord)
_destroy = _declare("proj_destroy", _PTR, _PTR)
_list_operations = _declare("proj_list_operations", ctypes.POINTER(_Operation))
_list_ellps = _declare("proj_list_ellps", ctypes.POINTER(_Ellipsoid))

_context = _context_create()
_log_level(_context, 0)

_PJ_CRS = 3
_PJ_OPERATION = 4
_PJ_PROJ_5 = 0
_PJ_PROJ_4 = 1
_PJ_FWD = 1
_DEGREE = 0.017453292519943295

Ellipsoid = namedtuple("Ellipsoid", "key a b rf name")


def operations():
    """(key, caption) of every operation of the library, in its order."""
    table = _list_operations()
    result = []
    index = 0
    while table[index].id:
        caption = table[index].descr[0].decode().split("\n")[0]
        result.append((table[index].id.decode(), caption))
        index += 1
    return result


def ellipsoids():
    """Every ellipsoid that the library knows by key, with the numbers as texts."""
    table = _list_ellps()
    result = []
    index = 0
    while table[index].id:
        row = table[index]
        a = row.major.decode().split("=")[1]
        kind, value = row.ell.decode().split("=")
        result.append(Ellipsoid(row.id.decode(), a, value if kind == "b" else "",
                                value if kind == "rf" else "", row.name.decode()))
        index += 1
    return result


def epsg_definition(code):
    """The PROJ.4 text of an EPSG coordinate system, or None."""
    crs = _from_database(_context, b"EPSG", str(code).encode(), _PJ_CRS, 0, None)
    if not crs:
        return None
    text = _as_proj_string(_context, crs, _PJ_PROJ_4, None)
    result = text.decode() if text else None
    _destroy(crs)
    return result


def epsg_operation(code):
    """The pipeline text of an EPSG coordinate operation, or None."""
    operation = _from_database(_context, b"EPSG", str(code).encode(), _PJ_OPERATION,
                               0, None)
    if not operation:
        return None
    text = _as_proj_string(_context, operation, _PJ_PROJ_5, None)
    result = text.decode() if text else None
    _destroy(operation)
    return result


def forward(definition, points):
    """Plane coordinates of (longitude, latitude) points in degrees.

    None when the definition is refused; a point that has no image is None.
    """
    operation = _create(_context, definition.encode())
    if not operation:
        return None
    result = []
    for longitude, latitude in points:
        coord = _Coord()
        coord.v[0] = longitude * _DEGREE
        coord.v[1] = latitude * _DEGREE
        image = _trans(operation, _PJ_FWD, coord)
        x, y = image.v[0], image.v[1]
        result.append((x, y) if abs(x) < 1e30 and abs(y) < 1e30 else None)
    _destroy(operation)
    return result


def database():
    """The coordinate-system database of the library, read only."""
    return sqlite3.connect("file:%s?mode=ro" % PROJ_DB, uri=True)


def epsg_codes():
    """Codes of all EPSG projected and two-dimensional geographic systems."""
    query = ("select code from projected_crs where auth_name='EPSG'"
             " union select code from geodetic_crs where auth_name='EPSG'"
             " and type='geographic 2D'")
    with database() as connection:
        codes = [row[0] for row in connection.execute(query)]
    return sorted(codes, key=int)


def parameters(definition):
    """A PROJ.4 text as a dictionary, the way the library's own reader sees it."""
    result = {}
    for piece in definition.split("+"):
        name, _, value = piece.strip().partition("=")
        if name:
            result.setdefault(name.strip(), value.strip())
    return result
