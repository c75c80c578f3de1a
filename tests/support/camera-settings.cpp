// camera-settings FRAME: the station in the current folder with a camera that sees the picture FRAME and has
// settings. A machine of tests has no camera whose brightness can be changed; the manual's picture needs one.
#include <QApplication>
#include <QDir>
#include <QTimer>

#include "app/Station.h"
#include "app/Toolkit.h"
#include "gui/FilmedCamera.h"

namespace {

vintoral::CameraOptions Settings() {
  using vintoral::String;
  const auto control = [](const char* id, const char* label, int least, int most, int value) {
    return vintoral::CameraControl{id, String::FromUtf8(label), least, most, value};
  };
  vintoral::CameraOptions options;
  options.modes = {{640, 480, 30}, {1280, 720, 30}, {1920, 1080, 15}};
  options.controls = {
      control("brightness", "Brillo", -64, 64, 0), control("contrast", "Contraste", 0, 64, 32),
      control("saturation", "Saturación", 0, 128, 64), control("sharpness", "Nitidez", 0, 6, 3),
      control("backlight_compensation", "Contraluz", 0, 2, 1)};
  return options;
}

}  // namespace

int main(int argc, char** argv) {
  vintoral::Toolkit application(argc, argv);
  vintoral::test::FilmedCamera camera;
  camera.Installed = {vintoral::String::FromUtf8("Entrada")};
  camera.Cameras[camera.Installed[0]].options = Settings();

  vintoral::Station station(QDir::currentPath().toStdString(), {.camera = &camera});
  QTimer films;
  const QImage frame(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
  QObject::connect(&films, &QTimer::timeout, [&] {
    if (camera.Asked.isEmpty() || frame.isNull()) return;
    camera.Film(frame.scaled(camera.Asked, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                    .convertToFormat(QImage::Format_RGB32));
  });
  constexpr int kInterval = 100;
  films.start(kInterval);
  return QApplication::exec();
}
