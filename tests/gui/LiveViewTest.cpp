// The live picture in the window: what it asks the camera for, what it paints, and what it says without one.
#include <QAbstractButton>
#include <QTest>
#include <filesystem>
#include <thread>

#include "gui/Gate.h"
#include "window/controls/CaptionLabel.h"

namespace vintoral::test {
namespace {

class LiveViews : public Gate {
 protected:
  LiveViews() {
    camera_.Installed = {"CAMARA"_w, "PATIO"_w};
    Start();
  }
  QWidget& View() { return Face("Picture1"); }
  QSize Pixels() {
    const QSizeF pixels = QSizeF(View().size()) * View().devicePixelRatioF();
    return {static_cast<int>(pixels.width()), static_cast<int>(pixels.height())};
  }
  QImage Shown() { return Picture(View()); }
  /// In the middle of the view, where neither corners nor names stand.
  QColor Middle() {
    const QImage shown = Shown();
    return shown.pixelColor(shown.rect().center());
  }
  /// Whatever is due is painted; a window waits some milliseconds for more.
  static void Settle() { QTest::qWait(40); }
  /// How often the view paints while `steps` run.
  int Paintings(const std::function<void()>& steps) {
    Settle();
    const int before = camera_.Taken;
    steps();
    Settle();
    return camera_.Taken - before;
  }
  void CallUp() {
    Type("7");
    Key(Qt::Key_Return);
  }
  /// Ficha 7 is inside, without a photo of the entrance.
  void LetIn() {
    CallUp();
    Type("klm483");
    Key(Qt::Key_Return);
    WillAnswer(Answer::kYes);
    Key(Qt::Key_Insert);
    ASSERT_EQ(form_->TotalVista(), 1);
  }
};

TEST_F(LiveViews, AsksForPicturesOfItsOwnPixels) {
  EXPECT_EQ(camera_.Asked, Pixels());
  const QSize before = camera_.Asked;
  window_->resize(1920, 1080);
  Settle();
  EXPECT_EQ(camera_.Asked, Pixels());
  EXPECT_GT(camera_.Asked.width(), before.width());
}

TEST_F(LiveViews, PaintsThePicturePixelForPixel) {
  QImage stripes(camera_.Asked, QImage::Format_RGB32);
  for (int y = 0; y < stripes.height(); ++y) {
    for (int x = 0; x < stripes.width(); ++x)
      stripes.setPixelColor(x, y, (x + y) % 2 == 0 ? Qt::black : Qt::yellow);
  }
  camera_.Film(stripes);
  Settle();
  const QImage window = Picture(*window_).convertToFormat(QImage::Format_RGB32);
  const double ratio = window.devicePixelRatio();
  const QPoint corner = (QPointF(View().mapTo(window_.get(), QPoint())) * ratio).toPoint();
  const int foot = static_cast<int>(40 * ratio);
  const QRect inner = stripes.rect().adjusted(20, 20, -20, -foot);  // off the corners and the name
  EXPECT_EQ(window.copy(inner.translated(corner)), stripes.copy(inner));
}

TEST_F(LiveViews, APictureThatIsNarrowerStandsInTheMiddle) {
  QImage narrow(camera_.Asked.width() / 2, camera_.Asked.height(), QImage::Format_RGB32);
  narrow.fill(Qt::red);
  camera_.Film(narrow);
  Settle();
  const QImage shown = Shown();
  const int y = shown.height() / 2;
  EXPECT_EQ(shown.pixelColor(shown.width() / 2, y), QColor(Qt::red));
  EXPECT_NE(shown.pixelColor(shown.width() / 8, y), QColor(Qt::red));
  EXPECT_EQ(shown.pixelColor(shown.width() / 8, y), shown.pixelColor(shown.width() * 7 / 8, y));
}

TEST_F(LiveViews, EachNewsIsPaintedOnce) {
  EXPECT_EQ(Paintings([this] { camera_.Film(Qt::red); }), 1);
  EXPECT_EQ(Middle(), QColor(Qt::red));
  EXPECT_EQ(Paintings([this] {
              for (int i = 0; i < 15; ++i) {
                camera_.Film(QColor(10 * i, 0, 0));
                Settle();
              }
            }),
            15);
  EXPECT_EQ(Middle(), QColor(140, 0, 0));
}

TEST_F(LiveViews, ABurstOfNewsIsOnePainting) {
  EXPECT_EQ(Paintings([this] {
              for (int i = 0; i < 100; ++i)
                camera_.Film(QColor(i, 0, 0));
            }),
            1);
  EXPECT_EQ(Middle(), QColor(99, 0, 0));
}

TEST_F(LiveViews, NewsMayComeFromAnyThread) {
  camera_.Give(QImage(camera_.Asked, QImage::Format_RGB32));
  EXPECT_EQ(Paintings([this] { std::thread(camera_.News).join(); }), 1);
}

TEST_F(LiveViews, NewsAfterTheWindowsEndHarmNobody) {
  const std::function<void()> late = camera_.News;
  ASSERT_TRUE(late);
  late();
  screen_.Owner = nullptr;
  dialogs_.reset();
  window_.reset();
  EXPECT_TRUE(camera_.Asked.isEmpty());
  late();
  Settle();
}

TEST_F(LiveViews, TypingPaintsNoPictures) {
  camera_.Film(Qt::red);
  Settle();
  CallUp();
  EXPECT_EQ(Paintings([this] { Type("klm483"); }), 0);
  EXPECT_EQ(Middle(), QColor(Qt::red));
}

TEST_F(LiveViews, NothingIsPaintedBehindAStill) {
  LetIn();
  camera_.Film(Qt::red);
  Settle();
  ASSERT_FALSE(camera_.Asked.isEmpty());
  const std::function<void()> news = camera_.News;
  QImage photo(320, 240, QImage::Format_RGB32);
  photo.fill(Qt::blue);
  ASSERT_TRUE(photo.save(QString::fromStdString(folder_.Path("Multimedia/Imágenes ACT/000007.jpg"))));
  CallUp();
  ASSERT_FALSE(View().isVisible());
  EXPECT_TRUE(camera_.Asked.isEmpty());
  EXPECT_EQ(Paintings(news), 0);
  Key(Qt::Key_Escape);
  EXPECT_TRUE(View().isVisible());
  EXPECT_EQ(camera_.Asked, Pixels());
}

TEST_F(LiveViews, NothingIsPaintedWhileTheWindowIsAway) {
  ASSERT_FALSE(camera_.Asked.isEmpty());
  window_->hide();
  Settle();
  EXPECT_TRUE(camera_.Asked.isEmpty());
  window_->show();
  Settle();
  EXPECT_EQ(camera_.Asked, Pixels());
}

TEST_F(LiveViews, TheStillOfTheEntranceStaysUnderTheQuestion) {
  auto frame = std::make_shared<cImage>();
  ASSERT_TRUE(frame->Create(64, 48, 24));
  for (int y = 0; y < 48; ++y) {
    for (int x = 0; x < 64; ++x)
      frame->hDC().Row(y)[3 * x + 1] = 255;  // green
  }
  camera_.Cameras["CAMARA"_w].frame = frame;
  camera_.Film(Qt::red);
  CallUp();
  Type("klm483");
  Key(Qt::Key_Return);
  ASSERT_FALSE(Face("Picture2").isVisible());
  QColor seen;
  const auto answer = screen_.OnShown;
  screen_.OnShown = [&](QMessageBox& box, const Box& shown) {
    Settle();
    const QImage still = Picture(Face("Picture2"));
    if (Face("Picture2").isVisible()) seen = still.pixelColor(still.rect().center());
    answer(box, shown);
  };
  WillAnswer(Answer::kNo);
  Key(Qt::Key_Insert);
  EXPECT_EQ(boxes_.size(), 1U);
  EXPECT_EQ(seen, QColor(Qt::green));
}

TEST_F(LiveViews, ACameraThatFallsSilentIsToldOf) {
  camera_.Film(Qt::red);
  Settle();
  camera_.Picture = nullptr;
  const auto muted = [this] { return Middle() != QColor(Qt::red); };
  ASSERT_TRUE(QTest::qWaitFor(muted, 1000));
  const QImage waiting = Shown();
  // The words come when it has been silent for long.
  EXPECT_TRUE(QTest::qWaitFor([&] { return Shown() != waiting; }, Camera::kStale + 2000));
  camera_.Film(Qt::red);
  Settle();
  EXPECT_EQ(Middle(), QColor(Qt::red));
}

TEST_F(LiveViews, APictureThatGrowsOldGoesByItself) {
  camera_.Film(Qt::red);
  Settle();
  camera_.Picture = nullptr;  // too old, and nobody tells
  const int before = camera_.Taken;
  EXPECT_TRUE(QTest::qWaitFor([&] { return camera_.Taken > before; }, Camera::kStale + 2000));
}

TEST_F(LiveViews, TheNameOfTheNextCameraStandsOnItForAMoment) {
  camera_.Film(Qt::red);
  Settle();
  const auto plain = [this] {
    const QImage shown = Shown();
    const QRect foot(20, shown.height() * 3 / 4, shown.width() / 2, shown.height() / 5);
    QImage red(foot.size(), shown.format());
    red.fill(Qt::red);
    return shown.copy(foot).convertToFormat(QImage::Format_RGB32) ==
           red.convertToFormat(QImage::Format_RGB32);
  };
  ASSERT_TRUE(QTest::qWaitFor(plain, 5000));
  Key(Qt::Key_W, Qt::ControlModifier);
  EXPECT_EQ(form_->CboDriver.Text(), "PATIO"_w);
  EXPECT_FALSE(plain());
  EXPECT_TRUE(QTest::qWaitFor(plain, 5000));
}

TEST_F(LiveViews, WithTheCameraOffTheOutsideProgramIsOffered) {
  std::filesystem::create_directories(folder_.Path("fotos"));
  form_->RutaFotosApp = "fotos"_w;
  form_->RutaAppCamera = "cheese.desktop"_w;
  EXPECT_FALSE(Face("PctAppCamera").isVisible());
  Key(Qt::Key_W, Qt::ControlModifier | Qt::AltModifier);
  EXPECT_FALSE(View().isVisible());
  EXPECT_TRUE(camera_.Asked.isEmpty());
  auto& offer = Face<QAbstractButton>("PctAppCamera");
  EXPECT_TRUE(offer.isVisible());
  EXPECT_EQ(offer.text(), QString::fromUtf8("Abrir cámara"));
  events_.Take();
  Click("PctAppCamera");
  const std::vector<DeviceEvent> events = events_.Take();
  ASSERT_EQ(events.size(), 1U);
  EXPECT_EQ(events[0].kind, DeviceEvent::Kind::kLaunch);
  EXPECT_EQ(events[0].text, "Explorer.exe cheese.desktop"_w);
}

TEST_F(LiveViews, ArrowsTurnThePhotosOfAFicha) {
  LetIn();
  const std::string folder = folder_.Path("Multimedia/Imágenes DTL/KLM4830007");
  std::filesystem::create_directories(folder);
  for (int number = 1; number <= 2; ++number) {
    QImage photo(320, 240, QImage::Format_RGB32);
    photo.fill(number == 1 ? Qt::green : Qt::blue);
    ASSERT_TRUE(photo.save(QString::fromStdString(folder + "/0007-" + std::to_string(number) + ".jpg")));
  }
  EXPECT_FALSE(Face("ImgFotoDetalle(1)").isVisible());
  CallUp();
  EXPECT_TRUE(Face("ImgFotoDetalle(0)").isVisible());
  EXPECT_EQ(Gate::Shown("LblFotoDetalle"), "2 fotos");
  Click("ImgFotoDetalle(1)");
  EXPECT_EQ(Gate::Shown("LblFotoDetalle"), "1 / 2");
  Click("ImgFotoDetalle(1)");
  EXPECT_EQ(Gate::Shown("LblFotoDetalle"), "2 / 2");
  const auto blue = [this] {
    const QImage still = Picture(Face("Picture2"));
    return still.pixelColor(still.rect().center()).blue() > 200;
  };
  EXPECT_TRUE(QTest::qWaitFor(blue, 5000));
  Click("ImgFotoDetalle(1)");
  EXPECT_EQ(Gate::Shown("LblFotoDetalle"), "1 / 2");
  screen_.Beeps = 0;
  Click("ImgFotoDetalle(0)");
  EXPECT_EQ(screen_.Beeps, 1);
  EXPECT_EQ(Gate::Shown("LblFotoDetalle"), "2 fotos");
  Key(Qt::Key_Escape);
  EXPECT_FALSE(Face("LblFotoDetalle").isVisible());
  EXPECT_FALSE(Face("ImgFotoDetalle(0)").isVisible());
}

TEST_F(LiveViews, ButtonsTakePhotosOfANewFicha) {
  EXPECT_FALSE(Face("PctFotoDetalle(0)").isVisible());
  CallUp();
  Type("klm483");
  Key(Qt::Key_Return);
  for (const char* const button : {"PctFotoDetalle(0)", "PctFotoDetalle(1)"})
    EXPECT_TRUE(Face(button).isVisible());
  EXPECT_TRUE(Face("PctFotoDetalle(0)").toolTip().contains("Tomar Fotos Adicionales"));
  EXPECT_TRUE(Face("PctFotoDetalle(1)").toolTip().contains("Tomar Fotos Continuas"));
  EXPECT_NE(Picture(Face("PctFotoDetalle(0)")), Picture(Face("PctFotoDetalle(1)")));
}

}  // namespace
}  // namespace vintoral::test
