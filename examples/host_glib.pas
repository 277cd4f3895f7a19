{ A host of the dialog in Pascal with GLib's main loop. It loads GLib and the library at run
  time. It has no window, so the dialog has no owner. Options and output are those of the
  other sample hosts; see host_common.h. }
program host_glib;

{$mode objfpc}{$H+}

uses
  SysUtils, dynlibs;

const
  tick_ms = 50;
  pause_ms = 500;

type
  { The flag is one byte. }
  TExecute = function(owner: Pointer; definition: PAnsiChar; changed: PByte): PAnsiChar; cdecl;
  TSource = function(context: Pointer): LongInt; cdecl;

var
  main_loop_new: function(context: Pointer; is_running: LongInt): Pointer; cdecl;
  main_loop_run: procedure(main_loop: Pointer); cdecl;
  main_loop_quit: procedure(main_loop: Pointer); cdecl;
  timeout_add: function(interval: LongWord; source: TSource; context: Pointer): LongWord; cdecl;
  execute: TExecute;
  main_loop: Pointer;
  times: Integer = 1;
  is_open: Boolean = False;
  ticks: Integer = 0;
  definition: AnsiString =
    '+proj=tmerc +lon_0=78.05 +lat_0=0 +x_0=4500000 +y_0=-5811057.628 +k_0=1 ' +
    '+towgs84=24.82,-131.21,-82.66,0,0,0.16,-0.12 +ellps=krass +units=m +lon_wrap=45 +no_defs';

procedure fail(const text: string);
begin
  WriteLn(StdErr, 'host: ', text);
  Halt(1);
end;

function load(const name: string): TLibHandle;
begin
  Result := LoadLibrary(name);
  if Result = NilHandle then
    fail('cannot load ' + name + ': ' + GetLoadErrorStr);
end;

function entry(module: TLibHandle; const name: string): Pointer;
begin
  Result := GetProcedureAddress(module, name);
  if Result = nil then
    fail('there is no ' + name);
end;

function on_tick(context: Pointer): LongInt; cdecl;
begin
  if is_open then
    Inc(ticks);
  Result := 1;
end;

function on_work(context: Pointer): LongInt; cdecl;
var
  changed: Byte = 0;
  after: AnsiString;
begin
  is_open := True;
  ticks := 0;
  { The text belongs to the library. The assignment copies it. }
  after := execute(nil, PAnsiChar(definition), @changed);
  is_open := False;
  WriteLn('before: ', definition);
  WriteLn('after: ', after);
  WriteLn('changed: ', changed);
  WriteLn('ticks: ', ticks);
  Flush(Output);
  definition := after;
  Dec(times);
  { The timer runs until the last dialog. }
  Result := Ord(times > 0);
  if times = 0 then
    main_loop_quit(main_loop);
end;

procedure start;
var
  glib: TLibHandle;
  library_path: string;
  i: Integer = 1;
begin
  library_path := ExtractFilePath(ParamStr(0)) + 'libzu_pj_edit.so';
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
  Pointer(execute) := entry(load(library_path), 'zu_proj4_form_execute');
  glib := load('libglib-2.0.so.0');
  Pointer(main_loop_new) := entry(glib, 'g_main_loop_new');
  Pointer(main_loop_run) := entry(glib, 'g_main_loop_run');
  Pointer(main_loop_quit) := entry(glib, 'g_main_loop_quit');
  Pointer(timeout_add) := entry(glib, 'g_timeout_add');
end;

begin
  start;
  main_loop := main_loop_new(nil, 0);
  timeout_add(tick_ms, @on_tick, nil);
  timeout_add(pause_ms, @on_work, nil);
  main_loop_run(main_loop);
end.
