// The contact sheet under test: a gate with fichas inside, their photos, and a mouse over its cells.
#pragma once

#include <QApplication>
#include <QImage>
#include <QTest>
#include <QWheelEvent>
#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "common/Numbers.h"
#include "gui/Gate.h"
#include "records/Register.h"
#include "window/controls/CellFrame.h"
#include "window/controls/PhotoCell.h"
#include "window/form1/CellGrid.h"

namespace vintoral::test {

inline QString Cell(int cell) {
  return QStringLiteral("ImgFicha(%1)").arg(cell);
}

/// Is it, give or take what JPEG does to a colour?
inline bool Near(const QColor& shown, const QColor& wanted) {
  constexpr int kJpeg = 12;
  return std::abs(shown.red() - wanted.red()) < kJpeg && std::abs(shown.green() - wanted.green()) < kJpeg &&
         std::abs(shown.blue() - wanted.blue()) < kJpeg;
}

class Sheet : public Gate {
 protected:
  Sheet() {
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
    Refresh();
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
    Refresh();
    ASSERT_EQ(Focused(), "FraFicha");
  }
  QString Pointed() { return Shown("LblCampo(0)"); }
};

}  // namespace vintoral::test
