/* What a screen reader gets of the dialog. */
#define COBJMACROS
#include <windows.h>
/* After the system's header. */
#include <oleacc.h>
#include <wchar.h>

#include "host_support.h"

typedef wchar_t const* text[2]; /* English, Russian */

/* Edits, lists, buttons and groups, in the order of Tab; in both languages. */
static text const unknown[] = {{L"Type", L"Тип"}};
static text const usual[] = {{L"Type", L"Тип"},
                             {L"Projection", L"Проекция"},
                             {L"Projection", L"Название"},
                             {L"Projection parameters", L"Параметры проекции"},
                             {L"Central Meridian", L"Центральный меридиан"},
                             {L"Latitude of Origin", L"Широта начала коорд."},
                             {L"Scale Factor", L"Масштабный коэфф."},
                             {L"False Easting", L"Сдвиг к востоку"},
                             {L"False Northing", L"Сдвиг к северу"}};
static text const zonal[] = {{L"Type", L"Тип"},
                             {L"Projection", L"Проекция"},
                             {L"Zonal type", L"Проекция"},
                             {L"Zone", L"Номер зоны"},
                             {L"Projection parameters", L"Параметры проекции"}};
static text const datum[] = {{L"Geographic coordinate system", L"Система координат"},
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
                             {L"Inverse flattering", L"Обратный коэфф. сжатия"}};
static text const buttons[] = {
    {L"Definition that Apply gives", L"Определение, которое вернёт \"Применить\""},
    {L"Undo", L"Назад"},
    {L"Redo", L"Вперёд"},
    {L"More...", L"Ещё..."},
    {L"Save", L"Сохранить"},
    {L"Load", L"Загрузить"},
    {L"Apply", L"Применить"},
    {L"Cancel", L"Отменить"}};

#define COUNT(table) (sizeof(table) / sizeof((table)[0]))

/* One a line. */
typedef wchar_t names[4096];

static void append(names list, wchar_t const* name) {
  size_t const length = wcslen(list);
  (void)swprintf(list + length, 4096 - length, L"%ls\n", name);
}

static void append_texts(names list, text const* texts, size_t count) {
  BOOL const russian = PRIMARYLANGID(GetUserDefaultUILanguage()) == LANG_RUSSIAN;
  for (size_t i = 0; i < count; ++i) append(list, texts[i][russian ? 1 : 0]);
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

static text const* first;
static size_t first_count;

static HWND host;
static names got;

/* On the form's thread: Wine does not take the answers to another one. */
static BOOL on_host_message(HWND window, UINT message) {
  if (window != host || message != WM_APP) return FALSE;
  EnumChildWindows(find_dialog(NULL), on_control, (LPARAM)got);
  return TRUE;
}

static void script_listen(HWND form) {
  static names expected;
  got[0] = expected[0] = 0;
  SendMessageW(host, WM_APP, 0, 0);
  append_texts(expected, first, first_count);
  if (first != unknown) append_texts(expected, datum, COUNT(datum));
  append_texts(expected, buttons, COUNT(buttons));
  test_check(wcscmp(got, expected) == 0, __FILE__, __LINE__, "the names are\n%ls", got);
  press(form, cancel_button);
}

static void check_names(char const* definition, text const* texts, size_t count) {
  first = texts;
  first_count = count;
  (void)run_form(host, definition, script_listen);
}

HOST_CASE(controls_are_known_by_their_captions) {
  host = open_host();
  host_hook = on_host_message;
  check_names("", unknown, COUNT(unknown));
  check_names(MOSCOW, usual, COUNT(usual));
  check_names("+proj=utm +zone=37 +datum=WGS84", zonal, COUNT(zonal));
}
