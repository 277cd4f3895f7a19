{ A host in Pascal with a window and a message loop of its own, for Windows. A
  division by zero is an exception to it, as Pascal's run time has set it up.

    host_win32 DEFINITION...    opens the dialog on each in turn, prints the results
    host_win32                  opens it on a definition of its own, shows the result

  While the dialog is open and the host's own timer ticks, the title of the
  host's window is "ticking". }
program host_win32;

{$mode objfpc}{$H+}

uses
  Windows, SysUtils, Math;

type
  { The C bool-like flag is one byte. }
  TExecute = function(owner: HWND; definition: PAnsiChar; changed: PByte): PAnsiChar; cdecl;

const
  class_name = 'zu_host_pas';
  message_edit = WM_APP;

var
  execute: TExecute;
  is_open: Boolean;

function definition_of(number: Integer): AnsiString;
begin
  if ParamCount = 0 then
    Result := '+proj=utm +zone=37 +datum=WGS84 +no_defs'
  else
    Result := ParamStr(number);
end;

procedure edit(window: HWND; number: Integer);
var
  mask: TFPUExceptionMask;
  mxcsr: DWord;
  definition: AnsiString;
  changed: Byte;
begin
  mask := GetExceptionMask;
  mxcsr := GetMXCSR;
  changed := 0;
  is_open := True;
  { The text belongs to the library; the assignment makes our copy. }
  definition := execute(window, PAnsiChar(definition_of(number)), @changed);
  is_open := False;
  SetWindowText(window, class_name);
  WriteLn(changed, ' ', definition);
  if ParamCount = 0 then
    MessageBox(window, PAnsiChar(definition), 'The definition now', MB_OK);
  if (GetExceptionMask <> mask) or (GetMXCSR <> mxcsr) then
    WriteLn('the exception mask is another');
end;

function on_message(window: HWND; message: UINT; first: WPARAM; second: LPARAM): LRESULT; stdcall;
begin
  Result := 0;
  case message of
    WM_TIMER:
      if is_open then
        SetWindowText(window, 'ticking');
    message_edit:
      if first > Max(ParamCount, 1) then
        DestroyWindow(window)
      else
      begin
        edit(window, first);
        PostMessage(window, message_edit, first + 1, 0);
      end;
    WM_DESTROY:
      PostQuitMessage(0);
  else
    Result := DefWindowProc(window, message, first, second);
  end;
end;

{ Our own divisions still end in Pascal's exceptions. }
procedure divide(zero: Integer);
begin
  try
    WriteLn(1 / zero);
  except
    on E: Exception do
      WriteLn(E.ClassName);
  end;
  try
    WriteLn(1 div zero);
  except
    on E: Exception do
      WriteLn(E.ClassName);
  end;
end;

var
  library_handle: HMODULE;
  kind: WNDCLASS;
  window: HWND;
  message: MSG;
begin
  library_handle := LoadLibrary(PChar(ExtractFilePath(ParamStr(0)) + 'zu_pj_edit.dll'));
  Pointer(execute) := GetProcAddress(library_handle, 'zu_proj4_form_execute');
  if execute = nil then
  begin
    WriteLn(StdErr, 'host_win32: zu_pj_edit.dll is not beside this program');
    Halt(1);
  end;
  FillChar(kind, SizeOf(kind), 0);
  kind.lpfnWndProc := @on_message;
  kind.hInstance := HInstance;
  kind.hbrBackground := COLOR_BTNFACE + 1;
  kind.lpszClassName := class_name;
  RegisterClass(kind);
  window := CreateWindow(class_name, class_name, WS_OVERLAPPEDWINDOW or WS_VISIBLE, 50, 50, 400, 300,
    0, 0, HInstance, nil);
  SetTimer(window, 1, 50, nil);
  PostMessage(window, message_edit, 1, 0);
  while GetMessage(message, 0, 0, 0) do
  begin
    TranslateMessage(message);
    DispatchMessage(message);
  end;
  divide(0);
end.
