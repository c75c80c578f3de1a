// The contact sheet: where its cells lie, and what they show.
#include <QApplication>
#include <QImage>
#include <QTest>

#include "gui/Sheet.h"
#include "window/controls/Theme.h"
#include "window/form1/CellSheet.h"

namespace vintoral::test {
namespace {

class Grid : public Sheet {};

TEST(CellGridTest, TakesTheColumnsThatMakeTheCellsLargest) {
  // Six columns in nine rows would make them 96 wide, eight in seven rows 85.
  const CellGrid small = CellGrid::Fitting(QRect(3, 3, 680, 651));
  EXPECT_EQ(small.Columns(), 7);
  EXPECT_EQ(small.Cell(), QSize(97, 72));
  EXPECT_EQ(small.Place(0), QRect(3, 3, 97, 72));
  EXPECT_EQ(small.Place(8), QRect(100, 75, 97, 72));
  const CellGrid high = CellGrid::Fitting(QRect(0, 0, 100, 2000));
  EXPECT_EQ(high.Columns(), 1);
  EXPECT_EQ(high.Cell(), QSize(53, 39));
  EXPECT_EQ(high.Place(49), QRect(23, 49 * 39, 53, 39));
  const CellGrid flat = CellGrid::Fitting(QRect(0, 0, 1000, 20));
  EXPECT_EQ(flat.Columns(), 50);
  EXPECT_EQ(flat.Cell(), QSize(20, 15));
}

TEST_F(Grid, AllCellsHaveTheirPlaceAtEverySize) {
  for (const QSize screen : {QSize(1093, 590), QSize(1366, 768), QSize(1920, 1080), QSize(3840, 2160)}) {
    window_->resize(screen);
    QCoreApplication::processEvents();
    const QRect sheet = Face("FraFicha").rect();
    const QSize size = CellFace(0).size();
    EXPECT_EQ(size.height(), size.width() * 3 / 4);
    EXPECT_GT(size.width(), screen.width() / 17);
    QRegion covered;
    for (int i = 0; i < kCells; ++i) {
      const QRect place = CellFace(i).geometry();
      EXPECT_EQ(place.size(), size);
      EXPECT_TRUE(sheet.contains(place));
      EXPECT_FALSE(covered.intersects(place));
      covered += place;
      if (i == 0) continue;
      // Beside the one before, or at the start of a new row below it.
      const QRect before = CellFace(i - 1).geometry();
      const bool beside = place.topLeft() == before.topRight() + QPoint(1, 0);
      const bool below = place.topLeft() == QPoint(CellFace(0).x(), before.bottom() + 1);
      EXPECT_TRUE(beside || below) << i;
    }
  }
}

TEST_F(Grid, ACellShowsItsPhotoWithTheNumberOnIt) {
  const QColor red(200, 40, 30), pale(250, 250, 250), dark(5, 5, 5);
  PutPhoto(1, red), PutPhoto(2, pale), PutPhoto(3, dark);
  Fill(4);
  EXPECT_TRUE(Near(Middle(CellFace(0)), red));
  for (const int cell : {1, 2}) {
    EXPECT_EQ(CellFace(cell).Number(), QString::number(cell + 1).rightJustified(4, '0'));
    // Bright letters with a dark line around them, on snow and at night.
    const QImage shown = Picture(CellFace(cell));
    bool bright = false, line = false;
    for (int y = shown.height() / 2; y < shown.height(); ++y) {
      for (int x = 0; x < shown.width() / 2; ++x) {
        bright = bright || shown.pixelColor(x, y) == QColor::fromRgb(theme::kDisplayText);
        line = line || shown.pixelColor(x, y) == QColor::fromRgb(theme::kDisplay);
      }
    }
    EXPECT_TRUE(bright && line) << cell;
  }
  // Without a photo the number stands on a calm ground.
  EXPECT_EQ(CellFace(3).Number(), "0004");
  EXPECT_FALSE(CellFace(3).HasPicture());
  EXPECT_EQ(ColorAt(CellFace(3), QPoint(4, 4)), QColor::fromRgb(theme::kPictureGround));
  EXPECT_NE(Picture(CellFace(3)), Picture(CellFace(2)));
  EXPECT_EQ(CellFace(3).accessibleName(), "0004");
  EXPECT_FALSE(CellFace(4).isVisible());
}

TEST_F(Grid, PhotosAreSharpToThePixel) {
  // Lines of one pixel of the screen, as many as the cell has.
  const double ratio = window_->devicePixelRatio();
  const QSizeF place = QSizeF(CellFace(1).size() - QSize(2, 2)) * ratio;
  QImage lines(static_cast<int>(place.width()), static_cast<int>(place.height()), QImage::Format_RGB32);
  for (int x = 0; x < lines.width(); ++x) {
    for (int y = 0; y < lines.height(); ++y)
      lines.setPixel(x, y, x % 2 == 0 ? 0xFF000000 : 0xFFFFFFFF);
  }
  ASSERT_TRUE(lines.save(PhotoFile(2), nullptr, 100));
  Fill(2);
  const QImage shown = Picture(*window_);
  const QPointF middle = QPointF(CellFace(1).mapTo(window_.get(), CellFace(1).rect().center())) * ratio;
  const QPoint at = middle.toPoint();
  for (int x = at.x() - 20; x < at.x() + 20; ++x) {
    const int step = qGray(shown.pixel(x, at.y())) - qGray(shown.pixel(x + 1, at.y()));
    EXPECT_GT(std::abs(step), 200) << x - at.x();
  }
}

TEST_F(Grid, AnotherPhotoUnderTheSameNameIsShown) {
  PutPhoto(1, Qt::red);
  Fill(1);
  ASSERT_TRUE(Near(Middle(CellFace(0)), Qt::red));
  PutPhoto(1, Qt::blue, {640, 480});
  Redraw();
  EXPECT_TRUE(Near(Middle(CellFace(0)), Qt::blue));
}

TEST_F(Grid, TheSamePhotoIsNotReadAgain) {
  PutPhoto(1, Qt::red);
  Fill(1);
  ASSERT_TRUE(CellFace(0).HasPicture());
  form_->LimpiarPantalla();
  form_->ImprimirIndice();
  Refresh();
  Picture(*window_);
  EXPECT_FALSE(CellFace(0).Loading());
  EXPECT_TRUE(CellFace(0).HasPicture());
}

TEST_F(Grid, AWindowThatWasAwayComesBackWithItsPhotos) {
  PutPhoto(1, Qt::red);
  Fill(1);
  window_->hide();
  window_->show();
  EXPECT_TRUE(CellFace(0).HasPicture());
  EXPECT_FALSE(CellFace(0).Loading());
}

TEST_F(Grid, APhotoThatMovesToAnotherCellIsThereAtOnce) {
  for (const int number : {2, 3})
    PutPhoto(number, number == 2 ? Qt::red : Qt::blue);
  Fill(3);
  ASSERT_TRUE(Near(Middle(CellFace(1)), Qt::red));
  for (const int first : {1, 0}) {  // one is taken out before them, and comes back
    form_->VistaFichas.assign({Ficha(1), Ficha(2), Ficha(3)});
    form_->VistaFichas.erase(form_->VistaFichas.begin(), form_->VistaFichas.begin() + first);
    form_->ImprimirIndice();
    Refresh();
    EXPECT_TRUE(Near(Middle(CellFace(1 - first)), Qt::red));
    EXPECT_TRUE(Near(Middle(CellFace(2 - first)), Qt::blue));
    EXPECT_FALSE(CellFace(1 - first).Loading() || CellFace(2 - first).Loading());
    QCoreApplication::processEvents();
  }
}

TEST_F(Grid, NothingIsKeptOfWhatIsNoLongerShown) {
  for (int number = 1; number <= 51; ++number)
    PutPhoto(number, Qt::red, {32, 24});
  Fill(51);
  ASSERT_TRUE(CellFace(1).HasPicture());
  form_->AvanzarPagina();
  Settle();
  EXPECT_TRUE(CellFace(0).HasPicture());
  for (int i = 1; i < kCells; ++i)
    EXPECT_FALSE(CellFace(i).HasPicture()) << i;
  EXPECT_TRUE(window_->Pictures().Find(form_->ImgFicha[1].Picture).isNull());
}

TEST_F(Grid, ADamagedPhotoIsToldAndDeleted) {
  folder_.Put("Multimedia/Imágenes ACT/000001.jpg", "\xFF\xD8\xFF\xE0 no picture at all");
  PutPhoto(2, Qt::red);
  ASSERT_TRUE(QFile::exists(PhotoFile(1)));
  Fill(2);
  EXPECT_FALSE(QFile::exists(PhotoFile(1)));
  EXPECT_TRUE(QFile::exists(PhotoFile(2)));
  EXPECT_TRUE(form_->ImgFicha[0].Picture.Empty());
  EXPECT_FALSE(CellFace(0).HasPicture());
  EXPECT_EQ(ColorAt(CellFace(0), QPoint(4, 4)), QColor::fromRgb(theme::kPictureGround));
}

TEST_F(Grid, ADamagedPictureThatNobodyLookedAtIsLeftAlone) {
  folder_.Put("usuario.jpg", "\xFF\xD8\xFF\xE0 no picture at all");
  form_->ImgFicha[0].Picture = "usuario.jpg"_w;
  form_->ImgFicha[0].Visible = true;
  Settle();
  EXPECT_FALSE(CellFace(0).HasPicture());
  EXPECT_FALSE(form_->ImgFicha[0].Picture.Empty());
  EXPECT_TRUE(std::filesystem::exists(folder_.Path("usuario.jpg")));
}

TEST_F(Grid, AFileThatIsAwayForAMomentIsReadLater) {
  form_->ImgFicha[0].Picture =
      vintoral::Picture("Multimedia\\Imágenes ACT\\000001.jpg"_w, FileMark{100, 100});
  form_->ImgFicha[0].Visible = true;
  Settle();
  ASSERT_FALSE(CellFace(0).HasPicture());
  PutPhoto(1, Qt::red);
  EXPECT_TRUE(QTest::qWaitFor([&] { return CellFace(0).HasPicture(); }));
}

}  // namespace
}  // namespace vintoral::test
