// The mirror touches what changed and nothing else.
#include <QCoreApplication>
#include <QEvent>
#include <QPainter>
#include <QSet>
#include <QTest>

#include "gui/Gate.h"
#include "window/controls/CaptionLabel.h"
#include "window/controls/PictureView.h"

namespace vintoral::test {
namespace {

/// Names of the widgets that were painted.
class Paints : public QObject {
 public:
  explicit Paints(QWidget& window) {
    for (QWidget* child : window.findChildren<QWidget*>())
      child->installEventFilter(this);
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint && !watched->objectName().isEmpty()) Names << watched->objectName();
    return false;
  }
  QSet<QString> Names;
};

class Mirrored : public Gate {
 protected:
  Mirrored() {
    Start();
    QCoreApplication::processEvents();
  }
  /// Pictures are read beside the event loop.
  void AwaitPicture(const QString& name) {
    auto& view = Face<PictureView>(name);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !view.Loading(); }));
  }
};

TEST_F(Mirrored, UnchangedModelPaintsNothing) {
  Paints paints(*window_);
  Refresh();
  QCoreApplication::processEvents();
  EXPECT_EQ(paints.Names, QSet<QString>());
}

TEST_F(Mirrored, AKeyPaintsItsFieldAlone) {
  Paints paints(*window_);
  Type("5");
  EXPECT_TRUE(paints.Names.contains("TxtCampo(0)"));
  EXPECT_FALSE(paints.Names.contains("ImgFondo"));
  EXPECT_FALSE(paints.Names.contains("LblFechaEnt"));
  EXPECT_FALSE(paints.Names.contains("PctBoton(3)"));
}

TEST_F(Mirrored, PicturesComeFromTheStationsFolder) {
  std::filesystem::create_directories(folder_.Path("Fondos"));
  QImage red(40, 30, QImage::Format_RGB32);
  red.fill(Qt::red);
  ASSERT_TRUE(red.save(QString::fromStdString(folder_.Path("Fondos/Rojo.jpg"))));
  form_->ImgFondo.Picture = "FONDOS\\ROJO.JPG"_w;
  Refresh();
  AwaitPicture("ImgFondo");
  const QColor shown = Picture(Face("ImgFondo")).pixelColor(20, 20);
  EXPECT_GT(shown.red(), 240);
  EXPECT_LT(shown.green(), 20);
}

TEST_F(Mirrored, ADamagedPictureIsBlank) {
  const QImage blank = Picture(Face("Picture2"));
  folder_.Put("mala.jpg", "\xFF\xD8\xFF\xE0 no picture at all");
  form_->Picture2.Picture = "mala.jpg"_w;
  form_->Picture2.Visible = true;
  Refresh();
  AwaitPicture("Picture2");
  EXPECT_EQ(Picture(Face("Picture2")), blank);
}

TEST_F(Mirrored, ANewPhotoUnderTheSameNameIsShown) {
  const QString file = QString::fromStdString(folder_.Path("foto.jpg"));
  QImage photo(40, 30, QImage::Format_RGB32);
  photo.fill(Qt::red);
  ASSERT_TRUE(photo.save(file));
  form_->Picture2.Picture = "foto.jpg"_w;
  form_->Picture2.Visible = true;
  Refresh();
  AwaitPicture("Picture2");
  const QImage before = Picture(Face("Picture2"));
  photo.fill(Qt::blue);
  ASSERT_TRUE(photo.save(file));
  form_->Picture2.Visible = false;
  Refresh();
  form_->Picture2.Visible = true;
  Refresh();
  AwaitPicture("Picture2");
  EXPECT_NE(Picture(Face("Picture2")), before);
}

TEST_F(Mirrored, AFichaWithoutPhotoShowsTheLivePictureAndSaysSo) {
  camera_.Film(Qt::black);  // as at night; but no photo comes of it
  Type("7");
  Key(Qt::Key_Return);
  Type("klm483");
  WillAnswer(Answer::kYes);
  Key(Qt::Key_Insert);
  EXPECT_FALSE(Face("LblWebCamMsg").isVisible());
  Type("7");
  Key(Qt::Key_Return);
  ASSERT_EQ(Shown("LblCampo(1)"), "KLM483");
  EXPECT_TRUE(Face("Picture1").isVisible());
  EXPECT_FALSE(Face("Picture2").isVisible());
  auto& message = Face<CaptionLabel>("LblWebCamMsg");
  EXPECT_TRUE(message.isVisible());
  EXPECT_EQ(message.Caption(), "SIN IMAGEN");
  // Over the picture, on a ground of its own.
  auto& picture = Face("Picture1");
  const QRect place(picture.mapTo(window_.get(), QPoint()), picture.size());
  const QRect over(message.mapTo(window_.get(), QPoint()), message.size());
  EXPECT_TRUE(place.contains(over));
  const QImage shown = Picture(*window_);
  const double ratio = shown.devicePixelRatio();
  const auto at = [&](QPoint point) { return QColor(shown.pixel((QPointF(point) * ratio).toPoint())); };
  EXPECT_EQ(at(place.center()), QColor(Qt::black));
  EXPECT_EQ(at(over.topLeft() + QPoint(12, 6)), QColor(Qt::white));
}

TEST_F(Mirrored, PixelsAreShownAtOnce) {
  auto frame = std::make_shared<cImage>();
  ASSERT_TRUE(frame->Create(40, 30, 24));
  for (int y = 0; y < 30; ++y) {
    for (int x = 0; x < 40; ++x)
      frame->hDC().Row(y)[3 * x + 2] = 255;  // red
  }
  form_->Picture2.Visible = true;
  form_->Picture2.Picture = vintoral::Picture(frame);
  Refresh();
  const QColor shown = Picture(Face("Picture2")).pixelColor(Face("Picture2").rect().center());
  EXPECT_EQ(shown, QColor(Qt::red));
}

TEST_F(Mirrored, ALargePhotoIsSharp) {
  const QSize place = Face("Picture2").size() * Face("Picture2").devicePixelRatio();
  constexpr int kStripe = 4;
  QImage stripes(place * 2, QImage::Format_RGB32);
  stripes.fill(Qt::black);
  QPainter painter(&stripes);
  for (int x = 0; x < stripes.width(); x += 2 * kStripe)
    painter.fillRect(x, 0, kStripe, stripes.height(), Qt::white);
  painter.end();
  ASSERT_TRUE(stripes.save(QString::fromStdString(folder_.Path("rayas.jpg")), nullptr, 95));
  form_->Picture2.Picture = "rayas.jpg"_w;
  form_->Picture2.Visible = true;
  Refresh();
  AwaitPicture("Picture2");
  const QImage shown = Picture(Face("Picture2"));
  int darkest = 255, lightest = 0;
  for (int x = shown.width() / 4; x < shown.width() * 3 / 4; ++x) {
    const int grey = qGray(shown.pixel(x, shown.height() / 2));
    darkest = std::min(darkest, grey);
    lightest = std::max(lightest, grey);
  }
  EXPECT_GT(lightest - darkest, 200);
}

}  // namespace
}  // namespace vintoral::test
