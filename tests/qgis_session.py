"""What scripts/check_qgis_plugin has QGIS run: the plug-in as its user works it.

Two layers show the same squares, one on WGS 84 and one on Krasovsky's ellipsoid
without a datum shift, so that they lie apart. The plug-in's dialog gives the second
one Pulkovo's seven numbers, and they lie on one another.
"""
import ctypes
import os
import re
import subprocess
import traceback

from osgeo import osr
from qgis.core import (
    QgsApplication, QgsCoordinateReferenceSystem, QgsCoordinateTransform, QgsDistanceArea,
    QgsFeature, QgsFillSymbol, QgsGeometry, QgsPointXY, QgsProject, QgsRectangle,
    QgsSingleSymbolRenderer, QgsVectorLayer)
from qgis.PyQt.QtCore import QEventLoop, QTimer
from qgis.PyQt.QtWidgets import QAction, QApplication, QInputDialog, QPushButton
from qgis.utils import iface, plugins
import pyplugin_installer

ARCHIVE = os.environ["ZU_QGIS_ARCHIVE"]
PICTURES = os.environ["ZU_QGIS_PICTURES"]
IS_RUSSIAN = os.environ["ZU_QGIS_LANGUAGE"] == "ru"
PLUGIN = "zu_pj_edit_qgis"
TITLE = "Проекция" if IS_RUSSIAN else "Projection"
MENU = "Редактор систем координат" if IS_RUSSIAN else "Coordinate system editor"
SHAPE = "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass +units=m +no_defs"
SHIFT = "23.57,-140.95,-79.8,0,0.35,0.79,-0.22"
WGS84 = QgsCoordinateReferenceSystem("EPSG:4326")
EAST, NORTH, STEP, SIDE = 37.61, 55.75, 0.003, 5
PAUSE_MS = 300
PATIENCE_MS = 180000


def say(text):
    with open(os.path.join(PICTURES, "session.log"), "a", encoding="utf-8") as log:
        log.write(text + "\n")


def expect(condition, text):
    if not condition:
        raise AssertionError(text)


def command(*words):
    return subprocess.run(words, capture_output=True, text=True, timeout=30, check=False).stdout


def picture(name):
    command("import", "-window", "root", "-strip", os.path.join(PICTURES, name + ".png"))


def use_dialog(keys, name=None, ticks=6):
    """Works the dialog from timers of QGIS's, while the call that shows it lasts."""
    try:
        found = command("xdotool", "search", "--onlyvisible", "--name", f"^{TITLE}$").split()
        if found and command("xdotool", "getactivewindow").strip() == found[0]:
            ticks -= 1
        # The window is there before its content is painted, which it does when nothing else
        # is due.
        if ticks > 0:
            QTimer.singleShot(PAUSE_MS, lambda: use_dialog(keys, name, ticks))
            return
        if name is not None:
            owner = command("xprop", "-id", found[0], "WM_TRANSIENT_FOR")
            expect(int(owner.rsplit(" ", 1)[-1], 16) == int(iface.mainWindow().winId()),
                   f"the dialog's owner is not QGIS's window: {owner}")
            expect(QApplication.activeModalWidget() is not None, "QGIS's windows take input")
            picture(name)
        command("xdotool", "key", *keys)
    except Exception:  # pylint: disable=broad-except
        fail(traceback.format_exc())


APPLY = ("shift+Tab", "shift+Tab", "space")
CANCEL = ("shift+Tab", "space")


def choose(action):
    """Chooses an action of the plug-in's menu."""
    iface.mainWindow().findChild(QAction, "zu_pj_edit_" + action).trigger()


def message():
    item = iface.messageBar().currentItem()
    return "" if item is None else item.text()


def saving_as(name):
    """Answers the question for a name that comes next."""
    def answer():
        question = QApplication.activeModalWidget()
        if not isinstance(question, QInputDialog):
            QTimer.singleShot(200, answer)
            return
        question.setTextValue(name)
        question.accept()
    QTimer.singleShot(500, answer)


def squares(move):
    """A few squares around a place, with their corners moved."""
    for column in range(SIDE):
        for row in range(SIDE):
            corners = [(EAST + (column + x) * STEP, NORTH + (row + y) * STEP * 0.55)
                       for x, y in ((0.1, 0.1), (0.9, 0.1), (0.9, 0.9), (0.1, 0.9))]
            feature = QgsFeature()
            feature.setGeometry(QgsGeometry.fromPolygonXY([[QgsPointXY(*move(*corner))
                                                            for corner in corners]]))
            yield feature


def make_layer(name, crs, colour, move):
    layer = QgsVectorLayer("Polygon", name, "memory")
    layer.setCrs(crs)
    layer.dataProvider().addFeatures(list(squares(move)))
    layer.updateExtents()
    layer.setRenderer(QgsSingleSymbolRenderer(QgsFillSymbol.createSimple(
        {"style": "no", "outline_color": colour, "outline_width": "0.6"})))
    QgsProject.instance().addMapLayer(layer)
    return layer


def to_zone():
    """From WGS 84 to the zone with its shift, by GDAL alone."""
    source, target = osr.SpatialReference(), osr.SpatialReference()
    source.ImportFromProj4("+proj=longlat +datum=WGS84 +no_defs")
    target.ImportFromProj4(f"{SHAPE} +towgs84={SHIFT}")
    transformation = osr.CoordinateTransformation(source, target)
    return lambda east, north: transformation.TransformPoint(east, north)[:2]


def corner_of(layer):
    transform = QgsCoordinateTransform(layer.crs(), WGS84, QgsProject.instance())
    return transform.transform(QgsPointXY(next(layer.getFeatures()).geometry().vertexAt(0)))


def metres(one, other):
    measure = QgsDistanceArea()
    measure.setEllipsoid("WGS84")
    return measure.measureLine(one, other)


def zoom():
    width = SIDE * STEP
    box = QgsRectangle(EAST - 0.2 * width, NORTH - 0.2 * width, EAST + 1.2 * width,
                       NORTH + 0.75 * width)
    iface.mapCanvas().setExtent(QgsCoordinateTransform(
        WGS84, QgsProject.instance().crs(), QgsProject.instance()).transformBoundingBox(box))


def wait_for_map():
    """Draws the map anew. Messages above it come meanwhile, and it is drawn once more."""
    loop = QEventLoop()
    QTimer.singleShot(2000, loop.quit)
    iface.mapCanvas().refreshAllLayers()
    loop.exec_()
    iface.mapCanvas().waitWhileRendering()
    QTimer.singleShot(500, loop.quit)
    loop.exec_()


def install():
    pyplugin_installer.instance().installFromZipFile(ARCHIVE)
    expect(PLUGIN in plugins, "QGIS has not started the plug-in")
    iface.messageBar().clearWidgets()


def edit_layer():
    """The layer without a shift gets one in the dialog, and then a name."""
    plain = QgsCoordinateReferenceSystem.fromWkt(wkt_of(SHAPE))
    expect(not plain.authid(), f"QGIS takes the zone without a shift for {plain.authid()}")
    base = make_layer("WGS 84", WGS84, "31,95,158", lambda east, north: (east, north))
    layer = make_layer("Krasovsky", plain, "214,60,40", to_zone())
    QgsProject.instance().setCrs(QgsCoordinateReferenceSystem("EPSG:32637"))
    zoom()
    wait_for_map()
    picture("before")
    before = corner_of(layer)
    iface.setActiveLayer(layer)
    use_dialog(APPLY, "dialog")
    choose("layer")
    wait_for_map()
    picture("after")
    after = corner_of(layer)
    moved, apart = metres(before, after), metres(after, corner_of(base))
    say(f"the layer has moved by {moved:.1f} m, to {apart:.3f} m from the other")
    expect(100 < moved < 140, "the layer has not moved by Pulkovo's shift")
    expect(apart < 0.01, "the layers do not lie on one another")

    name = "Пулково 1942, зона 7"
    saving_as(name)
    iface.messageBar().currentItem().findChild(QPushButton, "zu_pj_edit_save").click()
    own = layer.crs()
    expect(own.authid().startswith("USER:") and own.description() == name,
           f"the layer has {own.authid()} {own.description()}")
    expect(own.authid() in message(), f"the message is {message()}")
    expect(metres(after, corner_of(layer)) < 0.001, "the system under its name is another")
    again = QgsCoordinateReferenceSystem.fromSrsId(own.srsid())
    expect(SHIFT in plugins_definition(again), "the saved system has lost its shift")


def plugins_definition(crs):
    from zu_pj_edit_qgis import systems  # pylint: disable=import-error,import-outside-toplevel
    return systems.definition_of(crs)


def wkt_of(definition):
    reference = osr.SpatialReference()
    reference.ImportFromProj4(definition)
    return reference.ExportToWkt(["FORMAT=WKT2_2019"])


def edit_project():
    """Cancel changes nothing; Apply gives WGS 84's zone back as the system it is."""
    before = QgsProject.instance().crs()
    use_dialog(CANCEL)
    choose("project")
    expect(QgsProject.instance().crs() == before, "Cancel has changed the project")
    use_dialog(APPLY)
    choose("project")
    expect(QgsProject.instance().crs().authid() == "EPSG:32637",
           f"the project has {QgsProject.instance().crs().toWkt()}")


def make_new_after_an_upgrade():
    """The plug-in is installed anew while its library is in use."""
    install()
    QgsProject.instance().setCrs(QgsCoordinateReferenceSystem.fromWkt(
        wkt_of(f"{SHAPE} +towgs84=25,-131,-82,0,0,0.16,-0.12")))
    saving_as("new one")
    use_dialog(APPLY)
    choose("new")
    number = re.search(r"USER:\d+", message())
    expect(number is not None, f"the message is {message()}")
    made = plugins_definition(QgsCoordinateReferenceSystem(number[0]))
    expect("+towgs84=25,-131,-82,0,0,0.16,-0.12 " in made, f"what was saved is {made}")


def complain():
    """What goes wrong is told in the message bar."""
    iface.messageBar().clearWidgets()
    QgsProject.instance().removeAllMapLayers()
    choose("layer")
    expect(message() != "", "nothing is said without a layer")
    say(f"without a layer: {message()}")


def be_refused():
    """No dialog comes up in a process that has loaded GTK 2; the user is told why."""
    ctypes.CDLL("libgtk-x11-2.0.so.0")
    choose("new")
    expect("GTK" in message(), f"of GTK 2 there is said: {message()}")
    say(f"with GTK 2: {message()}")


def fail(text):
    say(text)
    picture("failed")
    os._exit(1)


def run():
    try:
        iface.mainWindow().showMaximized()
        install()
        titles = [action.text().replace("&", "") for action in iface.pluginMenu().actions()]
        expect(MENU in titles, f"{MENU} is not among {titles}")
        steps = ([be_refused] if "ZU_QGIS_WITH_GTK_2" in os.environ else
                 [edit_layer, edit_project, make_new_after_an_upgrade, complain])
        for step in steps:
            step()
        QgsProject.instance().setDirty(False)
        say("done")
        QgsApplication.exit(0)
    except Exception:  # pylint: disable=broad-except
        fail(traceback.format_exc())


QTimer.singleShot(2000, run)
QTimer.singleShot(PATIENCE_MS, lambda: fail("not done in time"))
