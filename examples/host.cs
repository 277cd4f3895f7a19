// A host of the dialog in C#, by P/Invoke, on GLib's main loop. Build and run it with Mono:
//
//   mcs -out:host.exe host.cs && mono host.exe
//
// The library must be in the program's folder or in a folder of LD_LIBRARY_PATH. On Windows a
// host passes the Handle of its Form as the owner and needs no GLib. Options and output are
// those of the other sample hosts (see host_common.h), without --library.
using System;
using System.Runtime.InteropServices;

static class Host {
  const int TickMs = 50;
  const int PauseMs = 500;

  // The returned text belongs to the library: copy it and never free it. If the type here were
  // "string", .NET would free it.
  [DllImport("zu_pj_edit", CallingConvention = CallingConvention.Cdecl)]
  static extern IntPtr zu_proj4_form_execute(IntPtr owner, string definition, out byte changed);

  [DllImport("zu_pj_edit", CallingConvention = CallingConvention.Cdecl)]
  static extern IntPtr zu_proj4_form_execute_w(IntPtr owner, IntPtr first, IntPtr second);

  [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
  delegate int Source(IntPtr context);

  [DllImport("libglib-2.0.so.0")]
  static extern IntPtr g_main_loop_new(IntPtr context, int isRunning);
  [DllImport("libglib-2.0.so.0")]
  static extern void g_main_loop_run(IntPtr loop);
  [DllImport("libglib-2.0.so.0")]
  static extern void g_main_loop_quit(IntPtr loop);
  [DllImport("libglib-2.0.so.0")]
  static extern uint g_timeout_add(uint interval, Source source, IntPtr context);

  // GLib keeps the addresses of these, so the garbage collector must not delete them.
  static readonly Source OnTick = Tick;
  static readonly Source OnWork = Work;

  static IntPtr loop;
  static int times = 1;
  static bool isOpen;
  static int ticks;
  static string definition =
      "+proj=tmerc +lon_0=78.05 +lat_0=0 +x_0=4500000 +y_0=-5811057.628 +k_0=1 " +
      "+towgs84=24.82,-131.21,-82.66,0,0,0.16,-0.12 +ellps=krass +units=m +lon_wrap=45 +no_defs";

  static int Tick(IntPtr context) {
    if (isOpen) ++ticks;
    return 1;
  }

  static int Work(IntPtr context) {
    isOpen = true;
    ticks = 0;
    byte changed;
    IntPtr result = zu_proj4_form_execute(IntPtr.Zero, definition, out changed);
    string after = Marshal.PtrToStringAnsi(result);
    isOpen = false;
    Console.WriteLine("before: {0}\nafter: {1}\nchanged: {2}\nticks: {3}", definition, after,
                      changed, ticks);
    definition = after;
    --times;
    if (times == 0) g_main_loop_quit(loop);
    // The timer runs until the last dialog.
    return times > 0 ? 1 : 0;
  }

  static int Main(string[] arguments) {
    for (int i = 0; i < arguments.Length; ++i) {
      if (arguments[i] == "--times" && i + 1 < arguments.Length)
        times = int.Parse(arguments[++i]);
      else
        definition = arguments[i];
    }
    try {
      // Without the suite's editor module this returns null.
      zu_proj4_form_execute_w(IntPtr.Zero, IntPtr.Zero, IntPtr.Zero);
    } catch (Exception error) {
      if (!(error is DllNotFoundException || error is EntryPointNotFoundException)) throw;
      Console.Error.WriteLine("host: cannot load " + error.Message);
      return 1;
    }
    loop = g_main_loop_new(IntPtr.Zero, 0);
    g_timeout_add(TickMs, OnTick, IntPtr.Zero);
    g_timeout_add(PauseMs, OnWork, IntPtr.Zero);
    g_main_loop_run(loop);
    return 0;
  }
}
