"""The dialog, by ctypes. The libraries in the plug-in's folder are loaded at the first use."""
import contextlib
import ctypes
import os
import shutil
import sys
import tempfile

from qgis.PyQt.QtCore import Qt
from qgis.PyQt.QtWidgets import QApplication, QDialog

from .texts import Error, is_russian

FOLDER = os.path.dirname(os.path.abspath(__file__))
IS_WINDOWS = sys.platform == "win32"
# The library's texts are in the system's 8-bit encoding.
ENCODING = "mbcs" if IS_WINDOWS else sys.getfilesystemencoding()
# The library's line on standard error begins with this if no dialog can open.
NO_DIALOG = b"zu_pj_edit: no dialog: "
LOADED = "zu_pj_edit_loaded"


def open_libraries(folder):
    """The library, and the module that answers its questions to the host."""
    library, host = (("zu_pj_edit.dll", "zuk_basic.dll") if IS_WINDOWS else
                     ("libzu_pj_edit.so", "zuk_basic.so"))
    return (ctypes.CDLL(os.path.join(folder, library)), ctypes.CDLL(os.path.join(folder, host)))


def open_copies():
    """The same from copies, which are deleted at once.

    QGIS installs a new version over the old files. If the file of a loaded library changes,
    the process ends. On Windows the system protects the files.
    """
    if IS_WINDOWS:
        return open_libraries(FOLDER)
    try:
        copies = tempfile.TemporaryDirectory(dir=FOLDER)
    except OSError:
        # A user who may not write here cannot install a new version here, either.
        return open_libraries(FOLDER)
    with copies as folder:
        for name in os.listdir(FOLDER):
            if name.endswith(".so"):
                shutil.copy(os.path.join(FOLDER, name), folder)
        return open_libraries(folder)


def load():
    """The dialog's function."""
    try:
        library, host = open_copies()
        host.zu_qgis_answer.argtypes = [ctypes.c_wchar_p, ctypes.c_int]
        host.zu_qgis_answer.restype = ctypes.c_int
        if not host.zu_qgis_answer(os.path.join(FOLDER, ""), is_russian()):
            raise Error("no library", FOLDER)
        execute = library.zu_proj4_form_execute
    except (AttributeError, OSError) as error:
        raise Error("no library", error) from error
    execute.restype = ctypes.c_char_p
    execute.argtypes = [ctypes.c_void_p, ctypes.c_char_p, ctypes.POINTER(ctypes.c_ubyte)]
    return execute


def loaded():
    """The same function until QGIS ends, also if the plug-in is replaced meanwhile, because a
    process cannot have two copies of the library."""
    application = QApplication.instance()
    execute = application.property(LOADED)
    if execute is None:
        execute = load()
        application.setProperty(LOADED, execute)
    return execute


@contextlib.contextmanager
def no_input(window):
    """Keeps keys, clicks and closing away from QGIS's windows, because Qt does not know about
    the dialog.

    An invisible modal window does this, as for the system's own dialogs.
    """
    modal = QDialog(window)
    modal.setAttribute(Qt.WA_DontShowOnScreen)
    modal.setWindowModality(Qt.ApplicationModal)
    modal.show()
    try:
        yield
    finally:
        modal.hide()
        modal.deleteLater()


@contextlib.contextmanager
def standard_error():
    """Collects the output to standard error, and writes it there at the end."""
    if IS_WINDOWS:
        # The dialog always opens on Windows, and QGIS has no standard error there.
        yield lambda: b""
        return
    with tempfile.TemporaryFile() as file:
        stream = os.dup(2)
        os.dup2(file.fileno(), 2)
        try:
            yield lambda: os.pread(file.fileno(), 1 << 16, 0)
        finally:
            os.dup2(stream, 2)
            os.close(stream)
            file.seek(0)
            with contextlib.suppress(OSError):
                os.write(2, file.read())


def window_id(window):
    """The window id for the library. A Wayland window has none."""
    has_one = QApplication.platformName() in ("xcb", "windows")
    return int(window.winId()) if has_one else None


def edited(window, definition):
    """The definition that the user has edited. None if the user cancels."""
    execute = loaded()
    changed = ctypes.c_ubyte(0)
    with no_input(window), standard_error() as lines:
        result = execute(window_id(window), definition.encode(ENCODING), ctypes.byref(changed))
        _, found, reason = lines().partition(NO_DIALOG)
    if found:
        raise Error("no dialog", reason.splitlines()[0].decode(ENCODING, "replace"))
    return result.decode(ENCODING) if changed.value else None
