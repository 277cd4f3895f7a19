/* The names of the controls for screen readers. */
#define COBJMACROS
#include <windows.h>
/* After the system's header. */
#include <oleacc.h>
#include <wchar.h>

#include "host_support.h"

/* Edits, lists, buttons and groups in the order of Tab. check_accessibility knows those of the
   other types, and the Russian ones. */
static wchar_t const* const usual[] = {L"Type",
                                       L"Projection",
                                       L"Projection",
                                       L"Projection parameters",
                                       L"Central Meridian",
                                       L"Latitude of Origin",
                                       L"Scale Factor",
                                       L"False Easting",
                                       L"False Northing",
                                       L"Geographic coordinate system",
                                       L"Datum",
                                       L"Datum parameters",
                                       L"Shift, Axis X",
                                       L"Rotate, Axis X",
                                       L"Shift, Axis Y",
                                       L"Rotate, Axis Y",
                                       L"Shift, Axis Z",
                                       L"Rotate, Axis Z",
                                       L"Scale factor",
                                       L"Spheroid",
                                       L"Spheroid",
                                       L"Semimajor axis",
                                       L"Inverse flattering",
                                       L"Definition that Apply gives",
                                       L"Undo",
                                       L"Redo",
                                       L"More...",
                                       L"Save",
                                       L"Load",
                                       L"Apply",
                                       L"Cancel"};
enum { usual_count = sizeof usual / sizeof usual[0] };

static BOOL CALLBACK on_control(HWND window, LPARAM context) {
  int* const count = (int*)context;
  wchar_t kind[64] = L"";
  GetClassNameW(window, kind, 64);
  BOOL const is_control = _wcsicmp(kind, L"Edit") == 0 || _wcsicmp(kind, L"ComboBox") == 0 ||
                          _wcsicmp(kind, L"Button") == 0;
  if (!is_control || !IsWindowVisible(window)) return TRUE;
  IAccessible* accessible = NULL;
  VARIANT const self = {.vt = VT_I4, .lVal = CHILDID_SELF};
  BSTR name = NULL;
  CHECK(AccessibleObjectFromWindow(window, (DWORD)OBJID_CLIENT, &IID_IAccessible,
                                   (void**)&accessible) == S_OK);
  if (accessible == NULL) return TRUE;
  CHECK(IAccessible_get_accName(accessible, self, &name) == S_OK);
  wchar_t const* const expected = *count < usual_count ? usual[*count] : L"(none)";
  test_check(name != NULL && wcscmp(name, expected) == 0, __FILE__, __LINE__,
             "control %d is %ls, not %ls", *count, name == NULL ? L"(null)" : name, expected);
  ++*count;
  SysFreeString(name);
  IAccessible_Release(accessible);
  return TRUE;
}

/* On the thread of the form: Wine does not move the answers between threads. */
static BOOL on_host_message(HWND window, UINT message) {
  (void)window;
  int count = 0;
  if (message != WM_APP) return FALSE;
  EnumChildWindows(find_dialog(NULL), on_control, (LPARAM)&count);
  CHECK(count == usual_count);
  return TRUE;
}

static HWND host;

static void script_listen(HWND form) {
  SendMessageW(host, WM_APP, 0, 0);
  press(form, cancel_button);
}

HOST_CASE(controls_are_known_by_their_captions) {
  host = open_host();
  host_hook = on_host_message;
  CHECK_FORM(host, MOSCOW, script_listen, MOSCOW, 0);
}
