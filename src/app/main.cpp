// The station: the current folder is its folder.
#include <QApplication>
#include <QDir>

#include "platform/desktop/DesktopPlatform.h"
#include "station/form1/Form1.h"
#include "window/MainWindow.h"
#include "window/Theme.h"

namespace {

QString FileOf(const vintoral::DesktopPlatform& platform, std::string_view path) {
  return QString::fromStdString(platform.FileOf(path));
}

}  // namespace

int main(int argc, char** argv) {
  QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);  // one look, on every desktop
  QApplication application(argc, argv);
  QApplication::setDesktopFileName(QStringLiteral("vintoral"));
  QApplication::setQuitOnLastWindowClosed(false);  // the station says when it ends
  vintoral::theme::Apply(application);

  vintoral::DesktopPlatform platform(QDir::currentPath().toStdString());
  vintoral::Form1 form(platform.Devices());
  vintoral::MainWindow window(form, [&](std::string_view path) { return FileOf(platform, path); });
  platform.Screen.Owner = &window;
  platform.Screen.BeforeWaiting = [&window] { window.Appear(); };

  form.Form_Load();
  if (form.Terminado()) return 0;
  window.Appear();
  return QApplication::exec();
}
