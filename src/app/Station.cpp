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
    : Devices(folder), Form(Devices.Devices()), Window(Form), Dialogs(Form.OpenForms, Window) {
  Devices.Screen.Owner = [this] { return Dialogs.Active(); };
  Devices.Screen.BeforeWaiting = [this] { Window.Appear(); };
}

bool Station::Start() {
  Form.Form_Load();
  if (Form.Terminado()) return false;
  Window.Appear();
  // Loading the libraries of sound, printing and cameras beside the first painting would hold that up.
  constexpr int kUntilPainted = 100;
  QTimer::singleShot(kUntilPainted, &Window, [this] {
    Devices.Sound.Begin();
    Devices.Printer.Begin();
    Devices.Camera.Begin();
  });
  return true;
}

}  // namespace vintoral
