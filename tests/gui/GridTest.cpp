// The contact sheet: where its cells lie, what they show, and what hands do on it.
#include <QAbstractItemView>
#include <QApplication>
#include <QDialog>
#include <QHelpEvent>
#include <QImage>
#include <QTest>
#include <QWheelEvent>

#include "common/Numbers.h"
#include "gui/Gate.h"
#include "records/Register.h"
#include "window/controls/CellFrame.h"
#include "window/controls/Light.h"
#include "window/controls/ListField.h"
#include "window/controls/PhotoCell.h"
#include "window/controls/TextField.h"
#include "window/controls/Theme.h"
#include "window/form1/CellSheet.h"

namespace vintoral::test {
namespace {

QString Cell(int cell) {
  return QStringLiteral("ImgFicha(%1)").arg(cell);
}

/// Is it, give or take what JPEG does to a colour?
bool Near(const QColor& shown, const QColor& wanted) {
  constexpr int kJpeg = 12;
  return std::abs(shown.red() - wanted.red()) < kJpeg && std::abs(shown.green() - wanted.green()) < kJpeg &&
         std::abs(shown.blue() - wanted.blue()) < kJpeg;
}

class Grid : public Gate {
 protected:
  Grid() {
    Start();
    std::filesystem::create_directories(folder_.Path("Multimedia/Imágenes ACT"));
  }

  static RegistroFicha Ficha(int number) {
    RegistroFicha ficha;
    ficha.EnUso = true;
    ficha.MarcaEntrada = "13:30  (20/11/2026)";
    ficha.MarcaSalida = "??";
    ficha.NumeroFicha = Digits(number, 4);
    ficha.Placa = "ABC"_w + Digits(number, 3);
    ficha.Categoria = "AUTOMOVIL";
    ficha.PorteriaEntrada = "01";
    ficha.PorteriaSalida = "??";
    ficha.Posicion = number;
    return ficha;
  }
  /// Fichas 1 to `count` are inside, and the grid shows them.
  void Fill(int count) {
    Register<RegistroFicha> act(form_->Devices().disk, "Multimedia\\Vintoral.ACT", OpenMode::kReadWrite);
    for (int number = 1; number <= count; ++number)
      act.Write(number, Ficha(number), false).PassOver();
    Redraw();
  }
  void Redraw() {
    form_->RefrescarVista();
    Settle();
  }
  /// Shows what there is to show, with all photos read.
  void Settle() {
    window_->Refresh();
    QCoreApplication::processEvents();
    const auto still = [&](const PictureView* view) { return view->isVisible() && view->Loading(); };
    EXPECT_TRUE(QTest::qWaitFor([&] {
      const auto views = Views();
      return std::none_of(views.begin(), views.end(), still);
    }));
  }
  std::vector<PictureView*> Views() {
    std::vector<PictureView*> views{&Face<PictureView>("Picture2")};
    for (int i = 0; i < kCells; ++i)
      views.push_back(&CellFace(i));
    return views;
  }
  PhotoCell& CellFace(int cell) { return Face<PhotoCell>(Cell(cell)); }
  CellFrame& FrameFace() { return Face<CellFrame>("ShpCelda"); }

  QString PhotoFile(int number) const {
    const std::string name = "Multimedia/Imágenes ACT/" + Digits(number, 6).Bytes() + ".jpg";
    return QString::fromStdString(folder_.Path(name));
  }
  void PutPhoto(int number, const QColor& color, const QSize& size = {320, 240}) {
    QImage photo(size, QImage::Format_RGB32);
    photo.fill(color);
    ASSERT_TRUE(photo.save(PhotoFile(number), nullptr, 100));
  }
  /// A point of the window as it is painted.
  QColor ColorAt(QWidget& widget, const QPoint& at) {
    const QImage shown = Picture(*window_);
    const QPointF point = QPointF(widget.mapTo(window_.get(), at)) * shown.devicePixelRatio();
    return shown.pixelColor(point.toPoint());
  }
  QColor Middle(QWidget& widget) { return ColorAt(widget, widget.rect().center()); }

  void MoveTo(QWidget& widget, const QPoint& at) {
    QTest::mouseMove(window_->windowHandle(), widget.mapTo(window_.get(), at));
    QCoreApplication::processEvents();
  }
  void MoveTo(const QString& name) { MoveTo(Face(name), Face(name).rect().center()); }
  /// On the sheet, below the last cell.
  void MoveToFreePart() {
    auto& sheet = Face("FraFicha");
    MoveTo(sheet, QPoint(sheet.width() / 2, sheet.height() - 8));
  }
  void TurnWheel(QWidget& over, int delta) {
    const QPointF at = over.rect().center();
    QWheelEvent event(at, over.mapToGlobal(at), QPoint(), QPoint(0, delta), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&over, &event);
  }
  void FocusGrid() {
    form_->SetFocus(&form_->FraFicha);
    window_->Refresh();
    ASSERT_EQ(Focused(), "FraFicha");
  }
  QString Pointed() { return Shown("LblCampo(0)"); }
};

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
  window_->Refresh();
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
    window_->Refresh();
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

TEST_F(Grid, ThePointerShowsTheRecordOfItsCell) {
  Fill(3);
  ASSERT_EQ(Pointed(), "");
  MoveTo(Cell(1));
  EXPECT_EQ(Pointed(), "0002");
  EXPECT_TRUE(FrameFace().isVisible());
  EXPECT_EQ(FrameFace().geometry(), CellFace(1).geometry());
  EXPECT_EQ(ColorAt(CellFace(1), QPoint(1, 30)), QColor::fromRgb(theme::kAccent));
  MoveTo(Cell(2));
  EXPECT_EQ(Pointed(), "0003");
  EXPECT_EQ(FrameFace().geometry(), CellFace(2).geometry());
  MoveToFreePart();
  EXPECT_EQ(Pointed(), "");
  EXPECT_FALSE(FrameFace().isVisible());
}

TEST_F(Grid, NoGapLiesBetweenTwoCells) {
  Fill(2);
  const int edge = CellFace(0).width();
  for (int x = edge - 3; x < edge + 3; ++x) {
    MoveTo(CellFace(0), QPoint(x, 20));
    EXPECT_EQ(Pointed(), x < edge ? "0001" : "0002") << x;
  }
}

TEST_F(Grid, ThePointerLeavesTheSheet) {
  Fill(3);
  const QRect place = CellFace(1).geometry();
  MoveTo(Cell(1));
  ASSERT_EQ(Pointed(), "0002");
  MoveTo(*window_, QPoint(2, window_->height() - 2));  // where no control is
  EXPECT_EQ(Pointed(), "");
  EXPECT_EQ(CellFace(1).geometry(), place);
}

TEST_F(Grid, ThePointerComesBackBeforeItsLeavingIsTold) {
  Fill(3);
  MoveTo(Cell(1));
  auto& sheet = Face("FraFicha");
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&sheet, &leave);
  const QPointF at(5, 5);
  QEnterEvent enter(at, at, at);
  QApplication::sendEvent(&sheet, &enter);
  MoveTo(Cell(2));
  EXPECT_EQ(Pointed(), "0003");
}

TEST_F(Grid, TheMouseTakesThePointerFromTheKeyboard) {
  Fill(12);
  MoveToFreePart();
  FocusGrid();
  Key(Qt::Key_Right);
  ASSERT_EQ(Pointed(), "0001");
  auto& sheet = Face("FraFicha");
  MoveTo(sheet, QPoint(sheet.width() / 2 + 4, sheet.height() - 8));
  EXPECT_EQ(Pointed(), "");
}

TEST_F(Grid, ABoxOverTheSheetLeavesWhatIsPointedAt) {
  Fill(3);
  MoveTo(Cell(1));
  ASSERT_EQ(Pointed(), "0002");
  QDialog box(window_.get());
  box.setModal(true);
  box.show();
  QCoreApplication::processEvents();
  EXPECT_FALSE(Face("FraFicha").underMouse());
  EXPECT_EQ(Pointed(), "0002");
  box.hide();
  MoveTo(*window_, QPoint(2, window_->height() - 2));
  EXPECT_EQ(Pointed(), "0002");
  window_->Refresh();  // as after whatever the box was asked for
  QCoreApplication::processEvents();
  EXPECT_EQ(Pointed(), "");
}

TEST_F(Grid, ThePointerRests) {
  Fill(3);
  MoveTo(Cell(1));
  ASSERT_EQ(Pointed(), "0002");
  const QPoint at = CellFace(1).rect().center();
  QHelpEvent help(QEvent::ToolTip, at, CellFace(1).mapToGlobal(at));
  QApplication::sendEvent(&CellFace(1), &help);
  EXPECT_EQ(Pointed(), "0002");
}

TEST_F(Grid, WhatTheBigPictureShowsIsNeverAnotherFicha) {
  PutPhoto(1, Qt::red), PutPhoto(2, Qt::blue);
  Fill(2);
  MoveTo(Cell(0));
  Settle();
  ASSERT_TRUE(Near(Middle(Face("Picture2")), Qt::red));
  form_->ImgFicha_MouseMove(1);
  window_->Refresh();
  // The cell's own picture, until the file has been read again for the larger place.
  EXPECT_TRUE(Near(Middle(Face("Picture2")), Qt::blue));
  EXPECT_TRUE(Face<PictureView>("Picture2").Loading());
  Settle();
  EXPECT_TRUE(Near(Middle(Face("Picture2")), Qt::blue));
}

TEST_F(Grid, AClickCallsUpTheFichaAndTheCellsAreDimmed) {
  PutPhoto(1, Qt::red);
  Fill(3);
  EXPECT_FALSE(CellFace(0).Dimmed());
  EXPECT_EQ(CellFace(0).cursor().shape(), Qt::PointingHandCursor);
  const QColor bright = Middle(CellFace(0));
  MoveTo(Cell(0));
  Click(Cell(0));
  Settle();
  ASSERT_TRUE(Face("PctBoton(6)").isVisible());
  EXPECT_EQ(FrameFace().geometry(), CellFace(0).geometry());
  EXPECT_TRUE(CellFace(0).Dimmed() && CellFace(1).Dimmed());
  EXPECT_EQ(CellFace(0).cursor().shape(), Qt::ArrowCursor);
  EXPECT_GT(qGray(Middle(CellFace(0)).rgb()), qGray(bright.rgb()) + 20);
  const QString shown = Pointed();
  MoveTo(Cell(2));
  EXPECT_EQ(Pointed(), shown);
  Key(Qt::Key_Escape);
  EXPECT_FALSE(CellFace(0).Dimmed());
  EXPECT_EQ(Middle(CellFace(0)), bright);
  // The pointer rests on a cell that it entered while the grid did not answer.
  MoveTo(CellFace(2), QPoint(10, 10));
  EXPECT_EQ(Pointed(), "0003");
}

TEST_F(Grid, CellsAreDimmedWhileAFichaIsTyped) {
  Fill(3);
  Type("9");
  Key(Qt::Key_Return);
  ASSERT_TRUE(Face("PctBoton(5)").isVisible());
  EXPECT_TRUE(CellFace(0).Dimmed());
}

TEST_F(Grid, ArrowsMoveThePointer) {
  Fill(12);
  FocusGrid();
  const int columns = CellGrid::Fitting(Face("FraFicha").rect().adjusted(3, 3, -3, -3)).Columns();
  ASSERT_GT(12, columns);
  Key(Qt::Key_Down);
  EXPECT_EQ(Pointed(), "0001");  // the first arrow comes to the first cell
  Key(Qt::Key_Right);
  EXPECT_EQ(Pointed(), "0002");
  Key(Qt::Key_Down);
  EXPECT_EQ(Pointed().toInt(), 2 + columns);
  Key(Qt::Key_Left);
  EXPECT_EQ(Pointed().toInt(), 1 + columns);
  Key(Qt::Key_Up);
  EXPECT_EQ(Pointed(), "0001");
  for (const Qt::Key edge : {Qt::Key_Up, Qt::Key_Left}) {
    Key(edge);
    EXPECT_EQ(Pointed(), "0001");
  }
  for (int i = 0; i < 15; ++i)
    Key(Qt::Key_Right);
  EXPECT_EQ(Pointed(), "0012");
  Key(Qt::Key_Down);
  EXPECT_EQ(Pointed(), "0012");
  EXPECT_EQ(Focused(), "FraFicha");
}

TEST_F(Grid, EnterClicksTheCellThatIsPointedAt) {
  Fill(3);
  FocusGrid();
  Key(Qt::Key_Return);
  EXPECT_FALSE(Face("PctBoton(6)").isVisible());
  Key(Qt::Key_Right);
  Key(Qt::Key_Right);
  ASSERT_EQ(Pointed(), "0002");
  Key(Qt::Key_Return);
  EXPECT_TRUE(Face("PctBoton(6)").isVisible());
  EXPECT_EQ(Shown("LblCampo(1)"), "ABC002");
}

TEST_F(Grid, OtherKeysGoTheirUsualWay) {
  Fill(120);
  FocusGrid();
  Key(Qt::Key_Right);
  ASSERT_EQ(Pointed(), "0001");
  Key(Qt::Key_PageDown);
  EXPECT_EQ(form_->InicioPagina, 51);
  FocusGrid();
  Type("7");
  EXPECT_EQ(Shown("TxtCampo(0)"), "7");
}

TEST_F(Grid, ArrowsAreLostWhileTheGridHoldsStill) {
  Fill(3);
  Type("9");
  Key(Qt::Key_Return);
  ASSERT_TRUE(Face("PctBoton(5)").isVisible());
  FocusGrid();
  Key(Qt::Key_Right);
  EXPECT_FALSE(FrameFace().isVisible());
  EXPECT_EQ(Focused(), "FraFicha");
}

TEST_F(Grid, TheKeyboardOnTheGridIsSeen) {
  Fill(1);
  auto& sheet = Face("FraFicha");
  const QPoint edge(sheet.width() / 2, 0);
  EXPECT_NE(ColorAt(sheet, edge), QColor::fromRgb(theme::kAccent));
  FocusGrid();
  EXPECT_EQ(ColorAt(sheet, edge), QColor::fromRgb(theme::kAccent));
  form_->SetFocus(&form_->TxtCampo[0]);
  window_->Refresh();
  EXPECT_NE(ColorAt(sheet, edge), QColor::fromRgb(theme::kAccent));
}

TEST_F(Grid, TheWheelTurnsPages) {
  Fill(120);
  ASSERT_EQ(Shown("LblInfo(0)"), "120 ( 1/3 )");
  TurnWheel(CellFace(3), -120);
  EXPECT_EQ(Shown("LblInfo(0)"), "120 ( 2/3 )");
  TurnWheel(Face("ImgFondo"), -60);
  EXPECT_EQ(Shown("LblInfo(0)"), "120 ( 2/3 )");
  TurnWheel(Face("ImgFondo"), -60);
  EXPECT_EQ(Shown("LblInfo(0)"), "120 ( 3/3 )");
  TurnWheel(Face("FraFicha"), 240);
  EXPECT_EQ(Shown("LblInfo(0)"), "120 ( 1/3 )");
  // What was turned one way doesn't count for the other.
  TurnWheel(CellFace(0), 100);
  TurnWheel(CellFace(0), -110);
  EXPECT_EQ(Shown("LblInfo(0)"), "120 ( 1/3 )");
  TurnWheel(CellFace(0), -10);
  EXPECT_EQ(Shown("LblInfo(0)"), "120 ( 2/3 )");
}

TEST_F(Grid, TheMonitorThatIsOnIsSeenWithoutReading) {
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

TEST_F(Grid, TheMinutesCanBeReadWhole) {
  constexpr int kBeside = 2 * theme::kTextInset;
  const auto& editor = *Face<ListField>("CboMinutos").Editor();
  for (const QSize screen : {QSize(1093, 614), QSize(1366, 768)}) {
    window_->resize(screen);
    QCoreApplication::processEvents();
    const int width = editor.fontMetrics().horizontalAdvance(QStringLiteral("180 Min. ADENTRO"));
    EXPECT_LE(width, editor.width() - kBeside) << screen.width();
  }
}

TEST_F(Grid, AReadingThatNobodyWantsDoesNotArrive) {
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
