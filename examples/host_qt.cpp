// A host of the dialog in Qt 5. Debian's Qt and the dialog both use GLib's main loop, so the
// host's windows and timers go on.
#include <QApplication>
#include <QPushButton>
#include <QTimer>

#include "host_common.h"

namespace {

// A window has an X11 id only if Qt uses X11.
zu_pj_edit_window window_id(QWidget const& window) {
  if (QGuiApplication::platformName() != QLatin1String("xcb")) return nullptr;
  return reinterpret_cast<zu_pj_edit_window>(window.winId());
}

void edit(host_state& host, QWidget& window) {
  // Qt does not know about the dialog, so the user could press the button again.
  window.setEnabled(false);
  host_edit(&host, window_id(window));
  window.setEnabled(true);
}

}  // namespace

int main(int argc, char** argv) {
  host_state host{};
  QApplication application(argc, argv);
  if (host_start(&host, argc, argv) == 0) return 1;

  QPushButton window("Edit...");
  window.setWindowTitle("zu_pj_edit host in Qt");
  window.resize(860, 420);
  QObject::connect(&window, &QPushButton::clicked, [&] { edit(host, window); });

  QTimer ticks;
  QObject::connect(&ticks, &QTimer::timeout, [&] { host_tick(&host); });
  ticks.start(host_tick_ms);

  QTimer user;
  user.setSingleShot(true);
  QObject::connect(&user, &QTimer::timeout, [&] {
    edit(host, window);
    if (host.times > 0) {
      user.start(host_pause_ms);
    } else {
      window.close();
    }
  });
  if (host.times > 0) user.start(host_pause_ms);

  window.show();
  // The loop ends with the last window.
  return QApplication::exec();
}
