{ A host in Pascal for Windows, with its own window and message loop. A division by zero is an
  exception, because Pascal's run time traps it. Options and output are those of the other
  sample hosts; see host_common.h. Without --times it opens the dialog once and shows the
  result. }
program host_win32;

{$mode objfpc}{$H+}

uses
  Windows, SysUtils, Math;

type
  { The flag is one byte. }
  TExecute = function(owner: HWND; definition: PAnsiChar; changed: PByte): PAnsiChar; cdecl;

const
  class_name = 'zu_host_pas';
  message_edit = WM_APP;
  tick_ms = 50;

var
  execute: TExecute;
  times: Integer = 0;
  is_open: Boolean = False;
  ticks: Integer = 0;
  definition: AnsiString =
    '+proj=tmerc +lon_0=78.05 +lat_0=0 +x_0=4500000 +y_0=-5811057.628 +k_0=1 ' +
    '+towgs84=24.82,-131.21,-82.66,0,0,0.16,-0.12 +ellps=krass +units=m +lon_wrap=45 +no_defs';

procedure edit(window: HWND);
var
  mask: TFPUExceptionMask;
  mxcsr: DWord;
  after: AnsiString;
  changed: Byte = 0;
begin
  mask := GetExceptionMask;
  mxcsr := GetMXCSR;
  is_open := True;
  ticks := 0;
  { The text belongs to the library. The assignment copies it. }
  after := execute(window, PAnsiChar(definition), @changed);
  is_open := False;
  if times = 0 then
    MessageBox(window, PAnsiChar(after), 'The definition now', MB_OK);
  WriteLn('before: ', definition);
  WriteLn('after: ', after);
  WriteLn('changed: ', changed);
  WriteLn('ticks: ', ticks);
  if (GetExceptionMask <> mask) or (GetMXCSR <> mxcsr) then
    WriteLn('the exception mask is another');
  Flush(Output);
  definition := after;
end;

function on_message(window: HWND; message: UINT; first: WPARAM; second: LPARAM): LRESULT; stdcall;
begin
  Result := 0;
  case message of
    WM_TIMER:
      if is_open then
        Inc(ticks);
    message_edit:
      begin
        edit(window);
        Dec(times);
        if times > 0 then
          PostMessage(window, message_edit, 0, 0)
        else
          DestroyWindow(window);
      end;
    WM_DESTROY:
      PostQuitMessage(0);
  else
    Result := DefWindowProc(window, message, first, second);
  end;
end;

{ Our own divisions by zero must still raise Pascal's exceptions. }
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

procedure start;
var
  library_path: string;
  i: Integer = 1;
begin
  library_path := ExtractFilePath(ParamStr(0)) + 'zu_pj_edit.dll';
  while i <= ParamCount do
  begin
    if ParamStr(i) = '--times' then
    begin
      Inc(i);
      times := StrToInt(ParamStr(i));
    end
    else if ParamStr(i) = '--library' then
    begin
      Inc(i);
      library_path := ParamStr(i);
    end
    else
      definition := ParamStr(i);
    Inc(i);
  end;
  Pointer(execute) := GetProcAddress(LoadLibrary(PChar(library_path)), 'zu_proj4_form_execute');
  if execute = nil then
  begin
    WriteLn(StdErr, 'host_win32: cannot load ', library_path);
    Halt(1);
  end;
end;

var
  kind: WNDCLASS;
  window: HWND;
  message: MSG;
begin
  start;
  FillChar(kind, SizeOf(kind), 0);
  kind.lpfnWndProc := @on_message;
  kind.hInstance := HInstance;
  kind.hbrBackground := COLOR_BTNFACE + 1;
  kind.lpszClassName := class_name;
  RegisterClass(kind);
  window := CreateWindow(class_name, class_name, WS_OVERLAPPEDWINDOW or WS_VISIBLE, 50, 50, 400, 300,
    0, 0, HInstance, nil);
  SetTimer(window, 1, tick_ms, nil);
  PostMessage(window, message_edit, 0, 0);
  while GetMessage(message, 0, 0, 0) do
  begin
    TranslateMessage(message);
    DispatchMessage(message);
  end;
  divide(0);
end.
