/* A host of the dialog in plain C and Win32. Its window has a definition, a button that opens
   the dialog, and the result.

   usage: zu_sample_host [DEFINITION] */
#include <windows.h>
/* After the system's header. */
#include <shellapi.h>
#include <stdlib.h>
#include <string.h>
#include <wchar.h>

#include "zu_pj_edit/zu_pj_edit.h"

typedef char const* (*execute_function)(zu_pj_edit_window owner, char const* definition,
                                        unsigned char* changed);

/* The Return key goes to the button that is IDOK. */
enum { id_edit = IDOK, id_definition = 100, id_result, id_changed };
enum { timer = 1, timer_ms = 50 };
/* At 96 dots per inch. */
enum { window_width = 860, window_height = 260, margin = 12, gap = 8, caption_width = 110 };

typedef struct {
  execute_function execute;
  BOOL is_open; /* the dialog */
  int ticks;    /* of the timer while the dialog was open */
  wchar_t const* start_definition;
  int dpi;
  HFONT font;
  HWND window;
  HWND focus; /* the control that last had the focus */
  HWND captions[3];
  HWND definition;
  HWND button;
  HWND result;
  HWND changed;
} host;

static wchar_t const program_name[] = L"zu_sample_host";
static wchar_t const default_definition[] =
    L"+proj=tmerc +lon_0=78.05 +lat_0=0 +x_0=4500000 +y_0=-5811057.628 +k_0=1 "
    L"+towgs84=24.82,-131.21,-82.66,0,0,0.16,-0.12 +ellps=krass +units=m +lon_wrap=45 +no_defs";

static void* take_memory(size_t size) {
  void* const memory = malloc(size);
  if (memory == NULL) abort();
  return memory;
}

/* The caller must free the text. */
static char* to_narrow(UINT page, wchar_t const* text) {
  int const size = WideCharToMultiByte(page, 0, text, -1, NULL, 0, NULL, NULL);
  char* const result = take_memory((size_t)size + 1);
  result[0] = 0;
  WideCharToMultiByte(page, 0, text, -1, result, size, NULL, NULL);
  return result;
}

static wchar_t* to_wide(UINT page, char const* text) {
  int const size = MultiByteToWideChar(page, 0, text, -1, NULL, 0);
  wchar_t* const result = take_memory(((size_t)size + 1) * sizeof *result);
  result[0] = 0;
  MultiByteToWideChar(page, 0, text, -1, result, size);
  return result;
}

static wchar_t* text_of(HWND window) {
  int const size = GetWindowTextLengthW(window) + 1;
  wchar_t* const text = take_memory((size_t)size * sizeof *text);
  text[0] = 0;
  GetWindowTextW(window, text, size);
  return text;
}

/* Writes to the program's output, or to the console of the parent process. */
static void write_text(DWORD stream, wchar_t const* text) {
  HANDLE handle = GetStdHandle(stream);
  DWORD mode = 0;
  DWORD written = 0;
  if ((handle == NULL || handle == INVALID_HANDLE_VALUE) && AttachConsole(ATTACH_PARENT_PROCESS)) {
    handle = GetStdHandle(stream);
  }
  if (handle == NULL || handle == INVALID_HANDLE_VALUE) return;
  if (GetConsoleMode(handle, &mode)) {
    WriteConsoleW(handle, text, (DWORD)wcslen(text), &written, NULL);
    return;
  }
  char* const bytes = to_narrow(CP_UTF8, text);
  WriteFile(handle, bytes, (DWORD)strlen(bytes), &written, NULL);
  free(bytes);
}

static void write_line(DWORD stream, wchar_t const* name, wchar_t const* text) {
  write_text(stream, name);
  write_text(stream, L": ");
  write_text(stream, text);
  write_text(stream, L"\n");
}

static void show_error(host const* self, wchar_t const* text) {
  write_line(STD_ERROR_HANDLE, program_name, text);
  MessageBoxW(self->window, text, program_name, MB_OK | MB_ICONERROR);
}

/* Loads the library only from the folder of this program. */
static execute_function load_library(host const* self) {
  static wchar_t const name[] = L"zu_pj_edit.dll";
  enum { path_size = 32768 };
  wchar_t* const path = take_memory(path_size * sizeof *path);
  DWORD const length = GetModuleFileNameW(NULL, path, path_size);
  wchar_t* const program = wcsrchr(path, L'\\');
  HMODULE library = NULL;
  if (length != 0 && length < path_size - wcslen(name) && program != NULL) {
    memcpy(program + 1, name, sizeof name);
    library = LoadLibraryW(path);
  }
  free(path);
  if (library == NULL) {
    show_error(self, L"cannot load zu_pj_edit.dll from the folder of this program");
    return NULL;
  }
  FARPROC const address = GetProcAddress(library, "zu_proj4_form_execute");
  if (address == NULL) show_error(self, L"zu_pj_edit.dll is not the expected library");
  return (execute_function)(void (*)(void))address;
}

/* The library takes text in the system's code page. Null if the page lacks a character. */
static char* to_ansi(wchar_t const* text) {
  char* const result = to_narrow(CP_ACP, text);
  wchar_t* const again = to_wide(CP_ACP, result);
  BOOL const same = wcscmp(text, again) == 0;
  free(again);
  if (same) return result;
  free(result);
  return NULL;
}

static void edit(host* self) {
  /* The line may change while the dialog is open. */
  wchar_t* const before = text_of(self->definition);
  char* const input = to_ansi(before);
  if (input == NULL) {
    show_error(self, L"the definition has characters that the system's code page lacks");
    free(before);
    return;
  }
  unsigned char changed = 0;
  wchar_t ticks[16];
  self->is_open = TRUE;
  self->ticks = 0;
  char const* const output = self->execute(self->window, input, &changed);
  self->is_open = FALSE;
  (void)swprintf(ticks, sizeof ticks / sizeof ticks[0], L"%d", self->ticks);
  wchar_t* const after = to_wide(CP_ACP, output);

  SetWindowTextW(self->result, after);
  SetWindowTextW(self->changed, changed ? L"1 (Apply)" : L"0 (not applied)");
  write_line(STD_OUTPUT_HANDLE, L"before", before);
  write_line(STD_OUTPUT_HANDLE, L"after", after);
  write_line(STD_OUTPUT_HANDLE, L"changed", changed ? L"1" : L"0");
  write_line(STD_OUTPUT_HANDLE, L"ticks", ticks);
  if (changed) SetWindowTextW(self->definition, after);
  free(after);
  free(input);
  free(before);
}

/* Before Windows 10 all screens have one resolution. */
static int dpi_of(HWND window) {
  typedef UINT(WINAPI * function)(HWND window);
  FARPROC const address = GetProcAddress(GetModuleHandleW(L"user32.dll"), "GetDpiForWindow");
  if (address != NULL) return (int)((function)(void (*)(void))address)(window);
  HDC const device = GetDC(window);
  int const dpi = GetDeviceCaps(device, LOGPIXELSX);
  ReleaseDC(window, device);
  return dpi;
}

static int scaled(host const* self, int length) { return MulDiv(length, self->dpi, 96); }

static BOOL CALLBACK give_font(HWND window, LPARAM font) {
  SendMessageW(window, WM_SETFONT, (WPARAM)font, TRUE);
  return TRUE;
}

/* The system's font for messages, at the resolution of the window. */
static void renew_font(host* self) {
  HFONT const old = self->font;
  NONCLIENTMETRICSW metrics = {.cbSize = sizeof metrics};
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  HDC const device = GetDC(NULL);
  metrics.lfMessageFont.lfHeight =
      MulDiv(metrics.lfMessageFont.lfHeight, self->dpi, GetDeviceCaps(device, LOGPIXELSY));
  ReleaseDC(NULL, device);
  self->font = CreateFontIndirectW(&metrics.lfMessageFont);
  EnumChildWindows(self->window, give_font, (LPARAM)self->font);
  if (old != NULL) DeleteObject(old);
}

static void lay_out(host const* self) {
  RECT area;
  GetClientRect(self->window, &area);
  HDC const device = GetDC(self->window);
  HGDIOBJ const kept = SelectObject(device, self->font);
  TEXTMETRICW metrics;
  GetTextMetricsW(device, &metrics);
  SelectObject(device, kept);
  ReleaseDC(self->window, device);

  int const edge = scaled(self, margin);
  int const row = metrics.tmHeight + scaled(self, gap);
  int const step = row + scaled(self, gap);
  int const left = edge + scaled(self, caption_width);
  int const button_width = scaled(self, 96);
  int const width = area.right - edge - left;
  int const text_top = (row - metrics.tmHeight) / 2;
  int const result_height = area.bottom - 2 * edge - 2 * step;
  int const tops[] = {edge, edge + step, edge + step + result_height + scaled(self, gap)};
  for (int i = 0; i < 3; ++i) {
    MoveWindow(self->captions[i], edge, tops[i] + text_top, left - edge, metrics.tmHeight, TRUE);
  }
  MoveWindow(self->definition, left, tops[0], width - button_width - scaled(self, gap), row, TRUE);
  MoveWindow(self->button, area.right - edge - button_width, tops[0], button_width, row, TRUE);
  MoveWindow(self->result, left, tops[1], width, result_height, TRUE);
  MoveWindow(self->changed, left, tops[2] + text_top, width, metrics.tmHeight, TRUE);
}

static HWND add_control(host const* self, wchar_t const* kind, wchar_t const* text, DWORD style,
                        DWORD extended_style, int id) {
  return CreateWindowExW(extended_style, kind, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0,
                         self->window, (HMENU)(INT_PTR)id, GetModuleHandleW(NULL), NULL);
}

static void build(host* self) {
  static wchar_t const* const captions[] = {L"Definition", L"Returned text", L"Changed flag"};
  for (int i = 0; i < 3; ++i)
    self->captions[i] = add_control(self, L"Static", captions[i], 0, 0, 0);
  self->definition = add_control(self, L"Edit", self->start_definition, WS_TABSTOP | ES_AUTOHSCROLL,
                                 WS_EX_CLIENTEDGE, id_definition);
  self->focus = self->definition;
  self->button =
      add_control(self, L"Button", L"Edit...", WS_TABSTOP | BS_DEFPUSHBUTTON, 0, id_edit);
  self->result = add_control(self, L"Edit", L"-", WS_TABSTOP | ES_MULTILINE | ES_READONLY,
                             WS_EX_CLIENTEDGE, id_result);
  self->changed = add_control(self, L"Static", L"-", 0, 0, id_changed);
  renew_font(self);
}

static LRESULT CALLBACK on_message(HWND window, UINT message, WPARAM first, LPARAM second) {
  host* self = (host*)GetWindowLongPtrW(window, GWLP_USERDATA);
  if (message == WM_NCCREATE) {
    self = ((CREATESTRUCTW const*)second)->lpCreateParams;
    self->window = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, (LONG_PTR)self);
  }
  if (self == NULL) return DefWindowProcW(window, message, first, second);
  switch (message) {
    case WM_CREATE:
      self->dpi = dpi_of(window);
      build(self);
      return 0;
    case WM_SIZE:
      lay_out(self);
      return 0;
    case WM_DPICHANGED: {
      RECT const* const place = (RECT const*)second;
      self->dpi = LOWORD(first);
      renew_font(self);
      SetWindowPos(window, NULL, place->left, place->top, place->right - place->left,
                   place->bottom - place->top, SWP_NOZORDER | SWP_NOACTIVATE);
      lay_out(self);
      return 0;
    }
    case WM_COMMAND:
      if (LOWORD(first) == id_edit && HIWORD(first) == BN_CLICKED) edit(self);
      return 0;
    case WM_ACTIVATE:
      if (LOWORD(first) == WA_INACTIVE && IsChild(window, GetFocus())) self->focus = GetFocus();
      return DefWindowProcW(window, message, first, second);
    case WM_SETFOCUS:
      /* An active window gets the focus itself. Its control shall have it. */
      if (IsChild(window, (HWND)first)) self->focus = (HWND)first;
      SetFocus(self->focus);
      return 0;
    case WM_TIMER:
      if (self->is_open) ++self->ticks;
      return 0;
    case WM_DESTROY:
      DeleteObject(self->font);
      PostQuitMessage(0);
      return 0;
    default:
      return DefWindowProcW(window, message, first, second);
  }
}

static BOOL open_window(host* self) {
  WNDCLASSEXW const kind = {.cbSize = sizeof kind,
                            .lpfnWndProc = on_message,
                            .hInstance = GetModuleHandleW(NULL),
                            .hIcon = LoadIconW(NULL, (LPCWSTR)IDI_APPLICATION),
                            .hCursor = LoadCursorW(NULL, (LPCWSTR)IDC_ARROW),
                            .hbrBackground = (HBRUSH)(COLOR_BTNFACE + 1),
                            .lpszClassName = program_name};
  if (RegisterClassExW(&kind) == 0) return FALSE;
  if (CreateWindowExW(WS_EX_CONTROLPARENT, program_name, L"zu_pj_edit sample host",
                      WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT, CW_USEDEFAULT,
                      window_width, window_height, NULL, NULL, kind.hInstance, self) == NULL) {
    return FALSE;
  }
  RECT screen;
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
  int const width = scaled(self, window_width);
  int const height = scaled(self, window_height);
  SetWindowPos(self->window, NULL, (screen.left + screen.right - width) / 2,
               (screen.top + screen.bottom - height) / 2, width, height, SWP_NOZORDER);
  ShowWindow(self->window, SW_SHOWNORMAL);
  return TRUE;
}

static int run(host* self) {
  MSG message;
  SetTimer(self->window, timer, timer_ms, NULL);
  while (GetMessageW(&message, NULL, 0, 0) > 0) {
    if (IsDialogMessageW(self->window, &message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return (int)message.wParam;
}

static BOOL read_options(host* self, int count, wchar_t** arguments) {
  for (int i = 1; i < count; ++i) {
    if (wcsncmp(arguments[i], L"--", 2) == 0 || self->start_definition != NULL) return FALSE;
    self->start_definition = arguments[i];
  }
  if (self->start_definition == NULL) self->start_definition = default_definition;
  return TRUE;
}

/* The system's signature and, with it, its names. */
/* NOLINTNEXTLINE(readability-non-const-parameter,readability-inconsistent-declaration-parameter-name) */
int WINAPI WinMain(HINSTANCE program, HINSTANCE none, LPSTR command_line, int show) {
  (void)program;
  (void)none;
  (void)command_line;
  (void)show;
  host self = {.dpi = 96};
  int count = 0;
  wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  int status = 2;
  if (arguments == NULL || !read_options(&self, count, arguments)) {
    show_error(&self, L"usage: zu_sample_host [DEFINITION]");
  } else {
    status = 1;
    self.execute = load_library(&self);
    if (self.execute != NULL) {
      if (open_window(&self)) {
        status = run(&self);
      } else {
        show_error(&self, L"cannot open a window");
      }
    }
  }
  LocalFree(arguments);
  return status;
}
