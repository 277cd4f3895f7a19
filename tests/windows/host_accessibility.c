/* The names of the controls for screen readers. */
#define COBJMACROS
#include <windows.h>
/* After the system's header. */
#include <oleacc.h>
#include <wchar.h>

#include "host_support.h"

typedef wchar_t const* text[2]; /* English, Russian */

/* Edits, lists, buttons and groups in the order of Tab. check_accessibility knows those of the
   other types. */
static text const usual[] = {
    {L"Type", L"Тип"},
    {L"Projection", L"Проекция"},
    {L"Projection", L"Название"},
    {L"Projection parameters", L"Параметры проекции"},
    {L"Central Meridian", L"Центральный меридиан"},
    {L"Latitude of Origin", L"Широта начала коорд."},
    {L"Scale Factor", L"Масштабный коэфф."},
    {L"False Easting", L"Сдвиг к востоку"},
    {L"False Northing", L"Сдвиг к северу"},
    {L"Geographic coordinate system", L"Система координат"},
    {L"Datum", L"Датум"},
    {L"Datum parameters", L"Параметры датума"},
    {L"Shift, Axis X", L"Смещение, Ось Х"},
    {L"Rotate, Axis X", L"Поворот, Ось Х"},
    {L"Shift, Axis Y", L"Смещение, Ось Y"},
    {L"Rotate, Axis Y", L"Поворот, Ось Y"},
    {L"Shift, Axis Z", L"Смещение, Ось Z"},
    {L"Rotate, Axis Z", L"Поворот, Ось Z"},
    {L"Scale factor", L"Масштабный коэфф."},
    {L"Spheroid", L"Эллипсоид"},
    {L"Spheroid", L"Название"},
    {L"Semimajor axis", L"Большая полуось"},
    {L"Inverse flattering", L"Обратный коэфф. сжатия"},
    {L"Definition that Apply gives", L"Определение, которое вернёт \"Применить\""},
    {L"Undo", L"Назад"},
    {L"Redo", L"Вперёд"},
    {L"More...", L"Ещё..."},
    {L"Save", L"Сохранить"},
    {L"Load", L"Загрузить"},
    {L"Apply", L"Применить"},
    {L"Cancel", L"Отменить"}};

/* One name on a line. */
typedef wchar_t names[4096];

static void append(names list, wchar_t const* name) {
  size_t const length = wcslen(list);
  (void)swprintf(list + length, 4096 - length, L"%ls\n", name);
}

static BOOL CALLBACK on_control(HWND window, LPARAM context) {
  static wchar_t const* const kinds[] = {L"Edit", L"ComboBox", L"Button"};
  wchar_t kind[64] = L"";
  GetClassNameW(window, kind, 64);
  BOOL is_control = FALSE;
  for (int i = 0; i < 3; ++i) is_control = is_control || _wcsicmp(kind, kinds[i]) == 0;
  if (!is_control || !IsWindowVisible(window)) return TRUE;
  IAccessible* accessible = NULL;
  VARIANT const self = {.vt = VT_I4, .lVal = CHILDID_SELF};
  BSTR name = NULL;
  CHECK(AccessibleObjectFromWindow(window, (DWORD)OBJID_CLIENT, &IID_IAccessible,
                                   (void**)&accessible) == S_OK);
  if (accessible == NULL) return TRUE;
  CHECK(IAccessible_get_accName(accessible, self, &name) == S_OK);
  append((wchar_t*)context, name == NULL ? L"(none)" : name);
  SysFreeString(name);
  IAccessible_Release(accessible);
  return TRUE;
}

static HWND host;
static names got;

/* On the thread of the form: Wine does not move the answers between threads. */
static BOOL on_host_message(HWND window, UINT message) {
  if (window != host || message != WM_APP) return FALSE;
  EnumChildWindows(find_dialog(NULL), on_control, (LPARAM)got);
  return TRUE;
}

static void script_listen(HWND form) {
  static names expected;
  BOOL const russian = PRIMARYLANGID(GetUserDefaultUILanguage()) == LANG_RUSSIAN;
  for (size_t i = 0; i < sizeof usual / sizeof usual[0]; ++i) {
    append(expected, usual[i][russian ? 1 : 0]);
  }
  SendMessageW(host, WM_APP, 0, 0);
  test_check(wcscmp(got, expected) == 0, __FILE__, __LINE__, "the names are\n%ls", got);
  press(form, cancel_button);
}

HOST_CASE(controls_are_known_by_their_captions) {
  host = open_host();
  host_hook = on_host_message;
  (void)run_form(host, MOSCOW, script_listen);
}
