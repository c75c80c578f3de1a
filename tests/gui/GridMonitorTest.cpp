// The monitors beside the contact sheet, and readings that come too late for it.
#include <QAbstractItemView>
#include <QApplication>
#include <QImage>
#include <QTest>

#include "gui/Sheet.h"
#include "window/controls/Light.h"
#include "window/controls/ListField.h"
#include "window/controls/TextField.h"
#include "window/controls/Theme.h"

namespace vintoral::test {
namespace {

class GridMonitor : public Sheet {};

TEST_F(GridMonitor, TheMonitorThatIsOnIsSeenWithoutReading) {
  auto& minutes = Face("CboMinutos");
  const QPoint ground(4, minutes.height() / 2);
  for (const int monitor : {0, 1, 2})
    EXPECT_FALSE(Face(QStringLiteral("PctBuscar(%1)").arg(monitor)).isVisible());
  EXPECT_NE(ColorAt(minutes, ground), QColor::fromRgb(theme::kAccent));
  for (const int monitor : {0, 1, 2}) {
    const QWidget& button = Face(QStringLiteral("PctBoton(%1)").arg(7 + monitor));
    const auto& light = Face<Light>(QStringLiteral("PctBuscar(%1)").arg(monitor));
    Click(button.objectName());
    EXPECT_TRUE(light.isVisible());
    EXPECT_EQ(light.geometry().center().x(), button.geometry().center().x());
    EXPECT_GT(light.y(), button.geometry().bottom());
    EXPECT_EQ(ColorAt(minutes, ground), QColor::fromRgb(theme::kAccent));
  }
  // What is selected, and the arrow, are seen on it; the open list is as any other.
  const auto& list = Face<ListField>("CboMinutos");
  const QPalette palette = list.Editor()->palette();
  EXPECT_EQ(palette.color(QPalette::Text), QColor::fromRgb(theme::kDisplayText));
  EXPECT_EQ(palette.color(QPalette::Highlight), QColor::fromRgb(theme::kDisplayText));
  EXPECT_EQ(palette.color(QPalette::HighlightedText), QColor::fromRgb(theme::kAccent));
  EXPECT_EQ(list.view()->palette().color(QPalette::Base), QColor::fromRgb(theme::kField));
  const QImage shown = Picture(minutes);
  bool arrow = false;
  for (int x = shown.width() * 9 / 10; x < shown.width() - 4; ++x) {
    for (int y = shown.height() / 4; y < shown.height() * 3 / 4; ++y)
      arrow = arrow || shown.pixelColor(x, y) == QColor::fromRgb(theme::kDisplayText);
  }
  EXPECT_TRUE(arrow);
  Click("PctBoton(9)");
  EXPECT_FALSE(Face("PctBuscar(2)").isVisible());
  EXPECT_NE(ColorAt(minutes, ground), QColor::fromRgb(theme::kAccent));
}

TEST_F(GridMonitor, TheMinutesCanBeReadWhole) {
  constexpr int kBeside = 2 * theme::kTextInset;
  const auto& editor = *Face<ListField>("CboMinutos").Editor();
  for (const QSize screen : {QSize(1093, 614), QSize(1366, 768)}) {
    window_->resize(screen);
    QCoreApplication::processEvents();
    const int width = editor.fontMetrics().horizontalAdvance(QStringLiteral("180 Min. ADENTRO"));
    EXPECT_LE(width, editor.width() - kBeside) << screen.width();
  }
}

TEST_F(GridMonitor, AReadingThatNobodyWantsDoesNotArrive) {
  PutPhoto(1, Qt::red), PutPhoto(2, Qt::blue);
  const auto path = [](int number) { return "Multimedia\\Imágenes ACT\\"_w + Digits(number, 6) + ".jpg"_w; };
  PictureLoader loader(form_->Devices().pictures, form_->Devices().disk);
  std::vector<QColor> arrived;
  const auto arrive = [&](const QImage& image, PictureFault) { arrived.push_back(image.pixelColor(1, 1)); };
  PictureLoader::Reading dropped = loader.Load(path(1), {32, 24, false}, PictureLoader::Turn::kFirst, arrive);
  dropped.reset();
  const PictureLoader::Reading wanted =
      loader.Load(path(2), {32, 24, false}, PictureLoader::Turn::kFirst, arrive);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !arrived.empty(); }));
  ASSERT_EQ(arrived.size(), 1U);
  EXPECT_TRUE(Near(arrived[0], Qt::blue));
}

}  // namespace
}  // namespace vintoral::test
