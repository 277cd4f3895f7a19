"""The texts of the plug-in, in the language of QGIS."""
from qgis.PyQt.QtCore import QSettings

# English and Russian.
TEXTS = {
    "menu": ("Coordinate system editor", "Редактор систем координат"),
    "layer": ("Edit the layer's coordinate system…", "Изменить систему координат слоя…"),
    "project": ("Edit the project's coordinate system…", "Изменить систему координат проекта…"),
    "new": ("New coordinate system…", "Новая система координат…"),
    "name": ("Name of the coordinate system:", "Название системы координат:"),
    "save": ("Save under a name…", "Сохранить под именем…"),
    "layer set": ("The layer has got the coordinate system.", "Слою задана система координат."),
    "project set": ("The project has got the coordinate system.",
                    "Проекту задана система координат."),
    "saved": ("Saved among the user-defined systems: {}",
              "Сохранено среди пользовательских систем: {}"),
    "no layer": ("Select a layer with a position first.", "Сначала выберите слой с привязкой."),
    "layer gone": ("The layer was removed while the dialog was open.",
                   "Слой был удалён, пока был открыт диалог."),
    "no dialog": ("The dialog cannot be shown: {}", "Диалог нельзя показать: {}"),
    "no library": ("The library does not load: {}", "Библиотека не загружается: {}"),
    "no text": ("This coordinate system has no PROJ.4 definition, so it cannot be edited.",
                "У этой системы координат нет определения PROJ.4, её нельзя изменить."),
    "not taken": ("QGIS does not take the coordinate system: {}",
                  "QGIS не принимает систему координат: {}"),
    "shift lost": ("QGIS would lose the datum shift of: {}",
                   "QGIS потерял бы параметры перехода датума: {}"),
    "not saved": ("QGIS has not saved the coordinate system.",
                  "QGIS не сохранил систему координат."),
}


def is_russian():
    # At its start QGIS writes its language here.
    return str(QSettings().value("locale/userLocale", "")).startswith("ru")


def text(key, *values):
    return TEXTS[key][is_russian()].format(*values)


class Error(Exception):
    """A message for the user instead of a result."""

    def __init__(self, key, *values):
        super().__init__(text(key, *values))
