// The window of the camera's settings, worked by keys and mouse.
#include <QTest>

#include "gui/Gate.h"
#include "window/controls/ListField.h"
#include "window/controls/Theme.h"

namespace vintoral::test {
namespace {

class CameraSettings : public Gate {
 protected:
  CameraSettings() {
    CameraOptions& options = camera_.Cameras["CAMARA"_w].options;
    options.modes = {{640, 480, 30}, {1280, 720, 15}};
    options.controls = {{"brightness", "Brillo"_w, 0, 255, 128}, {"contrast", "Contraste"_w, -64, 64, 0}};
    Start();
  }
  void InSettings(const std::function<void()>& steps) {
    InDialog("FormCamara", Qt::Key_W, Qt::ShiftModifier | Qt::AltModifier, steps);
  }
  const CameraFormat& Now() const { return camera_.Running.format; }
};

TEST_F(CameraSettings, ShowsWhatTheCameraOffers) {
  InSettings([this] {
    EXPECT_EQ(Front().windowTitle(), QString::fromUtf8("Vintoral  -  Configurar Cámara"));
    EXPECT_EQ(Shown("LblCamara"), "CAMARA");
    EXPECT_EQ(Shown("CboModo"), "La del dispositivo");
    EXPECT_EQ(Face<ListField>("CboModo").count(), 3);
    EXPECT_EQ(Shown("LblControl(1)"), "Contraste");
    EXPECT_EQ(Shown("TxtControl(1)"), "0");
    EXPECT_EQ(Shown("LblLimites(1)"), "-64 a 64");
    EXPECT_EQ(Front().findChild<QWidget*>("TxtControl(2)"), nullptr);
    EXPECT_EQ(Focused(), "CboModo");
  });
}

TEST_F(CameraSettings, EverythingHasItsPlace) {
  camera_.Cameras["CAMARA"_w].options.controls.assign(12, {"hue", "Balance de blancos"_w, 0, 10000, 6500});
  InSettings([this] {
    const QRect room = Front().rect();
    QRect last;
    for (int i = 0; i < 12; ++i) {
      for (const char* const family : {"LblControl", "CmdMenos", "TxtControl", "CmdMas", "LblLimites"}) {
        QWidget& face = Face(QStringLiteral("%1(%2)").arg(family).arg(i));
        const QRect place(face.mapTo(&Front(), QPoint()), face.size());
        EXPECT_TRUE(room.contains(place)) << family << i;
        EXPECT_FALSE(place.intersects(last)) << family << i;
        last = place;
      }
    }
    // Below the title bar of the smallest screen.
    EXPECT_LE(Front().height(), 690);
    EXPECT_LT(Face("TxtControl(0)").fontMetrics().horizontalAdvance("-10000") + 2 * theme::kTextInset,
              Face("TxtControl(0)").width());
  });
}

TEST_F(CameraSettings, WhatIsChosenActsAtOnceAndIsKept) {
  InSettings([this] {
    Key(Qt::Key_Down);
    Key(Qt::Key_Down);
    EXPECT_EQ(Shown("CboModo"), "1280 x 720, 15 por segundo");
    EXPECT_EQ(Now().mode, (CameraMode{1280, 720, 15}));
    Key(Qt::Key_Tab);
    EXPECT_EQ(Focused(), "TxtControl(0)");
    Type("200");
    EXPECT_EQ(Now().controls.at("brightness"), 200);
    Key(Qt::Key_Up);
    EXPECT_EQ(Shown("TxtControl(0)"), "205");
    Click("CmdMenos(1)");
    EXPECT_EQ(Shown("TxtControl(1)"), "-2");
    EXPECT_EQ(Focused(), "TxtControl(0)");
    Key(Qt::Key_Return);
    EXPECT_EQ(dialogs_->Find("FormCamara"), nullptr);
  });
  EXPECT_EQ(folder_.Get("Recursos/Vintoral.CFG"), "1280x720@15 brightness=205 contrast=-2 | CAMARA\r\n");
}

TEST_F(CameraSettings, CancelPutsTheCameraBack) {
  InSettings([this] {
    Key(Qt::Key_Tab);
    Type("200");
    ASSERT_EQ(Now().controls.at("brightness"), 200);
    Click("CmdCancelar");
    EXPECT_EQ(dialogs_->Find("FormCamara"), nullptr);
    EXPECT_EQ(Now().controls.at("brightness"), 128);
  });
  EXPECT_EQ(folder_.Get("Recursos/Vintoral.CFG"), "(missing)");
}

TEST_F(CameraSettings, TheLivePictureGoesOnBesideIt) {
  InSettings([this] {
    QWidget& live = *window_->findChild<QWidget*>("Picture1");
    const auto place = [](QWidget& widget) { return QRect(widget.mapToGlobal(QPoint()), widget.size()); };
    EXPECT_FALSE(place(Front()).intersects(place(live)));
    camera_.Film(Qt::red);
    QCoreApplication::processEvents();
    const QImage shown = Picture(live);
    EXPECT_EQ(shown.pixelColor(shown.rect().center()), QColor(Qt::red));
  });
}

}  // namespace
}  // namespace vintoral::test
