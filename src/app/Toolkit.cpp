#include "app/Toolkit.h"

#include <fontconfig/fontconfig.h>

#include <clocale>
#include <system_error>

#include "platform/SignalsElsewhere.h"
#include "window/controls/Theme.h"

namespace vintoral {

BeforeToolkit::BeforeToolkit() {
  QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);  // one look, on every desktop
  QGuiApplication::setDesktopFileName(QStringLiteral("vintoral"));
  QGuiApplication::setQuitOnLastWindowClosed(false);  // the station says when it ends
  std::setlocale(LC_ALL, "");  // as the toolkit does; not while the thread reads numbers
  const SignalsElsewhere masked;
  try {
    fonts_ = std::thread([] { FcInit(); });
  } catch (const std::system_error&) {
    // Without a thread to spare the toolkit reads them itself.
  }
}

BeforeToolkit::~BeforeToolkit() {
  Wait();
}

void BeforeToolkit::Wait() {
  if (fonts_.joinable()) fonts_.join();
}

Toolkit::Toolkit(int& argc, char** argv) : QApplication(argc, argv) {
  theme::Apply(*this);
  Wait();
}

}  // namespace vintoral
