#include "app/Station.h"

#include <QApplication>
#include <QTimer>

namespace vintoral {

void Station::PrepareToolkit() {
  QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);  // one look, on every desktop
  QGuiApplication::setDesktopFileName(QStringLiteral("vintoral"));
  QGuiApplication::setQuitOnLastWindowClosed(false);  // the station says when it ends
}

Station::Station(const std::string& folder)
    : Devices(folder),
      Form(Devices.Devices()),
      Window(Form, [this](std::string_view path) { return QString::fromStdString(Devices.FileOf(path)); }) {
  Devices.Screen.Owner = &Window;
  Devices.Screen.BeforeWaiting = [this] { Window.Appear(); };
}

bool Station::Start() {
  Form.Form_Load();
  if (Form.Terminado()) return false;
  Window.Appear();
  // Once the window has been painted.
  QTimer::singleShot(0, &Window, [this] { Devices.Sound.Begin(); });
  return true;
}

}  // namespace vintoral
