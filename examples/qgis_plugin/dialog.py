"""The dialog, by ctypes. What lies in the plug-in's folder is loaded at its first use."""
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
# The library's texts are in the system's own 8-bit encoding.
ENCODING = "mbcs" if IS_WINDOWS else sys.getfilesystemencoding()
# Its line on standard error when no dialog can come up.
NO_DIALOG = b"zu_pj_edit: no dialog: "
LOADED = "zu_pj_edit_loaded"


def open_libraries(folder):
    """The library, and the module that it asks what a host is asked."""
    library, host = (("zu_pj_edit.dll", "zuk_basic.dll") if IS_WINDOWS else
                     ("libzu_pj_edit.so", "zuk_basic.so"))
    return (ctypes.CDLL(os.path.join(folder, library)), ctypes.CDLL(os.path.join(folder, host)))


def open_copies():
    """The same from copies that are gone at once.

    QGIS installs a new version over the old files, and a library whose file changes
    ends the process. On Windows the system keeps the files as they are.
    """
    if IS_WINDOWS:
        return open_libraries(FOLDER)
    try:
        copies = tempfile.TemporaryDirectory(dir=FOLDER)
    except OSError:
        # Who may not write here does not install here, either.
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
    """The same function until QGIS ends, also when the plug-in is replaced meanwhile: a
    process cannot hold two copies of the library."""
    application = QApplication.instance()
    execute = application.property(LOADED)
    if execute is None:
        execute = load()
        application.setProperty(LOADED, execute)
    return execute


@contextlib.contextmanager
def no_input(window):
    """Keeps keys, clicks and closing from QGIS's windows, for Qt knows nothing of the dialog.

    A modal window that is never drawn does it, as with the system's own dialogs.
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
    """Collects what is written to standard error, which gets it at the end."""
    if IS_WINDOWS:
        # Nothing keeps the dialog from coming up there, and QGIS has no such stream.
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
    """What the library takes for an owner; a Wayland window has none."""
    has_one = QApplication.platformName() in ("xcb", "windows")
    return int(window.winId()) if has_one else None


def edited(window, definition):
    """What the user makes of a definition; None when he cancels."""
    execute = loaded()
    changed = ctypes.c_ubyte(0)
    with no_input(window), standard_error() as lines:
        result = execute(window_id(window), definition.encode(ENCODING), ctypes.byref(changed))
        _, found, reason = lines().partition(NO_DIALOG)
    if found:
        raise Error("no dialog", reason.splitlines()[0].decode(ENCODING, "replace"))
    return result.decode(ENCODING) if changed.value else None
