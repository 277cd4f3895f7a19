"""A plug-in for QGIS: the dialog of zu_pj_edit edits its coordinate systems."""


def classFactory(iface):  # pylint: disable=invalid-name
    """QGIS calls this."""
    from .plugin import Plugin  # pylint: disable=import-outside-toplevel
    return Plugin(iface)
