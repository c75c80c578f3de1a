// The contact sheet under the pointer: mouse, keyboard and wheel.
#include <QApplication>
#include <QDialog>
#include <QHelpEvent>
#include <QTest>

#include "gui/Sheet.h"
#include "window/controls/Theme.h"
#include "window/form1/CellSheet.h"

namespace vintoral::test {
namespace {

class GridPointer : public Sheet {};

TEST_F(GridPointer, ThePointerShowsTheRecordOfItsCell) {
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

TEST_F(GridPointer, NoGapLiesBetweenTwoCells) {
  Fill(2);
  const int edge = CellFace(0).width();
  for (int x = edge - 3; x < edge + 3; ++x) {
    MoveTo(CellFace(0), QPoint(x, 20));
    EXPECT_EQ(Pointed(), x < edge ? "0001" : "0002") << x;
  }
}

TEST_F(GridPointer, ThePointerLeavesTheSheet) {
  Fill(3);
  const QRect place = CellFace(1).geometry();
  MoveTo(Cell(1));
  ASSERT_EQ(Pointed(), "0002");
  MoveTo(*window_, QPoint(2, window_->height() - 2));  // where no control is
  EXPECT_EQ(Pointed(), "");
  EXPECT_EQ(CellFace(1).geometry(), place);
}

TEST_F(GridPointer, ThePointerComesBackBeforeItsLeavingIsTold) {
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

TEST_F(GridPointer, TheMouseTakesThePointerFromTheKeyboard) {
  Fill(12);
  MoveToFreePart();
  FocusGrid();
  Key(Qt::Key_Right);
  ASSERT_EQ(Pointed(), "0001");
  auto& sheet = Face("FraFicha");
  MoveTo(sheet, QPoint(sheet.width() / 2 + 4, sheet.height() - 8));
  EXPECT_EQ(Pointed(), "");
}

TEST_F(GridPointer, ABoxOverTheSheetLeavesWhatIsPointedAt) {
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
  Refresh();  // as after whatever the box was asked for
  QCoreApplication::processEvents();
  EXPECT_EQ(Pointed(), "");
}

TEST_F(GridPointer, ThePointerRests) {
  Fill(3);
  MoveTo(Cell(1));
  ASSERT_EQ(Pointed(), "0002");
  const QPoint at = CellFace(1).rect().center();
  QHelpEvent help(QEvent::ToolTip, at, CellFace(1).mapToGlobal(at));
  QApplication::sendEvent(&CellFace(1), &help);
  EXPECT_EQ(Pointed(), "0002");
}

TEST_F(GridPointer, WhatTheBigPictureShowsIsNeverAnotherFicha) {
  PutPhoto(1, Qt::red), PutPhoto(2, Qt::blue);
  Fill(2);
  MoveTo(Cell(0));
  Settle();
  ASSERT_TRUE(Near(Middle(Face("Picture2")), Qt::red));
  form_->ImgFicha_MouseMove(1);
  Refresh();
  // The cell's own picture, until the file has been read again for the larger place.
  EXPECT_TRUE(Near(Middle(Face("Picture2")), Qt::blue));
  EXPECT_TRUE(Face<PictureView>("Picture2").Loading());
  Settle();
  EXPECT_TRUE(Near(Middle(Face("Picture2")), Qt::blue));
}

TEST_F(GridPointer, AClickCallsUpTheFichaAndTheCellsAreDimmed) {
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

TEST_F(GridPointer, CellsAreDimmedWhileAFichaIsTyped) {
  Fill(3);
  Type("9");
  Key(Qt::Key_Return);
  ASSERT_TRUE(Face("PctBoton(5)").isVisible());
  EXPECT_TRUE(CellFace(0).Dimmed());
}

TEST_F(GridPointer, ArrowsMoveThePointer) {
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

TEST_F(GridPointer, EnterClicksTheCellThatIsPointedAt) {
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

TEST_F(GridPointer, OtherKeysGoTheirUsualWay) {
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

TEST_F(GridPointer, ArrowsAreLostWhileTheGridHoldsStill) {
  Fill(3);
  Type("9");
  Key(Qt::Key_Return);
  ASSERT_TRUE(Face("PctBoton(5)").isVisible());
  FocusGrid();
  Key(Qt::Key_Right);
  EXPECT_FALSE(FrameFace().isVisible());
  EXPECT_EQ(Focused(), "FraFicha");
}

TEST_F(GridPointer, TheKeyboardOnTheGridIsSeen) {
  Fill(1);
  auto& sheet = Face("FraFicha");
  const QPoint edge(sheet.width() / 2, 0);
  EXPECT_NE(ColorAt(sheet, edge), QColor::fromRgb(theme::kAccent));
  FocusGrid();
  EXPECT_EQ(ColorAt(sheet, edge), QColor::fromRgb(theme::kAccent));
  form_->SetFocus(&form_->TxtCampo[0]);
  Refresh();
  EXPECT_NE(ColorAt(sheet, edge), QColor::fromRgb(theme::kAccent));
}

TEST_F(GridPointer, TheWheelTurnsPages) {
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

}  // namespace
}  // namespace vintoral::test
