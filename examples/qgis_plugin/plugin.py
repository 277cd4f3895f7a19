"""The menu of the plug-in, and the use of the dialog's result."""
import functools
import os

from qgis.core import Qgis, QgsCoordinateReferenceSystem, QgsMapLayerType, QgsMessageLog, QgsProject
from qgis.PyQt.QtGui import QIcon
from qgis.PyQt.QtWidgets import QAction, QInputDialog, QPushButton

from . import dialog, systems
from .texts import Error, text

TAG = "zu_pj_edit"
MESSAGE_SECONDS = 15


def told(action):
    """An action of the user. QGIS's message bar shows its errors."""
    @functools.wraps(action)
    def run(self, *arguments):
        if self.is_open:
            return
        self.is_open = True
        try:
            action(self, *arguments)
        except Error as error:
            self.tell(str(error), Qgis.Warning)
        except Exception as error:  # pylint: disable=broad-except
            QgsMessageLog.logMessage(repr(error), TAG, Qgis.Critical)
            self.tell(f"{type(error).__name__}: {error}", Qgis.Critical)
        finally:
            self.is_open = False
    return run


class Plugin:
    """QGIS makes one of these and asks it for its menu."""

    def __init__(self, iface):
        self.iface = iface
        self.is_open = False
        self.menu = text("menu")
        self.actions = []
        self.layer_action = None

    def initGui(self):  # pylint: disable=invalid-name
        """QGIS calls this at the start."""
        icon = QIcon(os.path.join(dialog.FOLDER, "icon.svg"))
        for key, method in (("layer", self.edit_layer), ("project", self.edit_project),
                            ("new", self.make_new)):
            action = QAction(icon, text(key), self.iface.mainWindow())
            action.setObjectName(f"zu_pj_edit_{key}")
            # Qt passes whether the action is checked.
            action.triggered.connect(lambda _checked, method=method: method())
            self.iface.addPluginToMenu(self.menu, action)
            self.actions.append(action)
        self.layer_action = self.actions[0]
        for kind in (QgsMapLayerType.VectorLayer, QgsMapLayerType.RasterLayer):
            self.iface.addCustomActionForLayerType(self.layer_action, "", kind, True)

    def unload(self):
        """QGIS calls this at the end."""
        if self.layer_action is not None:
            self.iface.removeCustomActionForLayerType(self.layer_action)
        for action in self.actions:
            self.iface.removePluginMenu(self.menu, action)
            action.deleteLater()
        self.actions = []

    def tell(self, message, level, crs=None):
        """Shows a message, with a button that saves a coordinate system."""
        bar = self.iface.messageBar()
        item = bar.createMessage(self.menu, message)
        # QGIS already has a system with a code.
        if crs is not None and not crs.authid():
            button = QPushButton(text("save"), item)
            button.setObjectName("zu_pj_edit_save")
            button.clicked.connect(lambda _checked: self.save(crs))
            item.layout().addWidget(button)
        bar.pushWidget(item, level, MESSAGE_SECONDS)

    def edited(self, crs):
        """The coordinate system that the user has edited. None if the user cancels."""
        definition = dialog.edited(self.iface.mainWindow(), systems.definition_of(crs))
        return None if definition is None else systems.crs_of(definition)

    @told
    def edit_layer(self):
        layer = self.iface.activeLayer()
        if layer is None or not layer.isSpatial():
            raise Error("no layer")
        identity = layer.id()
        crs = self.edited(layer.crs())
        if crs is None:
            return
        # The layer may have been removed while the dialog was open.
        layer = QgsProject.instance().mapLayer(identity)
        if layer is None:
            raise Error("layer gone")
        layer.setCrs(crs)
        layer.triggerRepaint()
        self.tell(text("layer set"), Qgis.Success, crs)

    @told
    def edit_project(self):
        crs = self.edited(QgsProject.instance().crs())
        if crs is not None:
            QgsProject.instance().setCrs(crs, True)
            self.tell(text("project set"), Qgis.Success, crs)

    @told
    def make_new(self):
        crs = self.edited(QgsProject.instance().crs())
        if crs is not None:
            self.ask_name_and_save(crs)

    @told
    def save(self, crs):
        own = self.ask_name_and_save(crs)
        if own is None:
            return
        # The layers and the project that have the system without a name get the named one.
        project = QgsProject.instance()
        if project.crs() == crs:
            project.setCrs(own, True)
        for layer in project.mapLayers().values():
            if layer.crs() == crs:
                layer.setCrs(own)

    def ask_name_and_save(self, crs):
        name, is_given = QInputDialog.getText(self.iface.mainWindow(), self.menu, text("name"))
        if not is_given or not name.strip():
            return None
        own = systems.saved(QgsCoordinateReferenceSystem(crs), name.strip())
        self.tell(text("saved", f"{name.strip()} ({own.authid()})"), Qgis.Success)
        return own
