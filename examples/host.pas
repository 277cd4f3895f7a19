{ The smallest host in Pascal: loads the library at run time.

    host_pas DEFINITION    opens the dialog on a definition and prints the result
    host_pas               opens no dialog: only loads the library }
program host_pas;

{$mode objfpc}{$H+}

uses
  SysUtils, dynlibs;

type
  { The flag is one byte. }
  TExecute = function(owner: Pointer; definition: PAnsiChar; changed: PByte): PAnsiChar; cdecl;
  TExecuteW = function(owner, first, second: Pointer): Pointer; cdecl;

procedure fail(const text: string);
begin
  WriteLn(StdErr, 'host_pas: ', text);
  Halt(1);
end;

function entry(library_handle: TLibHandle; const name: string): Pointer;
begin
  Result := GetProcedureAddress(library_handle, name);
  if Result = nil then
    fail('the library has no ' + name);
end;

var
  library_path: string;
  library_handle: TLibHandle;
  execute: TExecute;
  execute_w: TExecuteW;
  changed: Byte;
  definition: AnsiString;
begin
  library_path := ExtractFilePath(ParamStr(0)) + 'libzu_pj_edit.' + SharedSuffix;
  library_handle := LoadLibrary(library_path);
  if library_handle = NilHandle then
    fail('cannot load ' + library_path + ': ' + GetLoadErrorStr);
  Pointer(execute) := entry(library_handle, 'zu_proj4_form_execute');
  Pointer(execute_w) := entry(library_handle, 'zu_proj4_form_execute_w');

  if ParamCount = 0 then
  begin
    if execute_w(nil, nil, nil) = nil then
      WriteLn('loaded, editor module: none')
    else
      WriteLn('loaded, editor module: loaded');
    Halt(0);
  end;

  changed := 0;
  { The text belongs to the library. The assignment copies it. }
  definition := execute(nil, PAnsiChar(AnsiString(ParamStr(1))), @changed);
  WriteLn(definition);
  if changed <> 0 then
    WriteLn('changed')
  else
    WriteLn('unchanged');
end.
