// The contact sheet: fifty cells over the wallpaper, and the hands that point at them.
#pragma once

#include <QWidget>
#include <array>

#include "window/controls/OwnKeys.h"
#include "window/controls/Snapshot.h"
#include "window/form1/CellGrid.h"

namespace vintoral {

class CaptionLabel;
class CellFrame;
class Hands;
class PhotoCell;
class PictureView;
struct Stage;

/// The pointer over a cell is told to the station, and that it has left them all; the wheel turns pages. With
/// the keyboard here, the arrows move the pointer and Enter clicks.
class CellSheet : public QWidget, public OwnKeys {
 public:
  CellSheet(Stage& stage, QWidget* parent);
  bool TakeKey(const QKeyEvent& event) override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  /// Of what lies on the sheet.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Build(Stage& stage);
  void BuildCells(Stage& stage);
  void Place();
  void FollowStation();
  void DimCells(bool dimmed);
  QPixmap PixmapOf(const Picture& picture) const;

  int Pointed() const;
  int CellOf(const QObject* widget) const;
  ControlId Id(const char* control, int index) const;
  void Point(int cell);
  void PointByKey(int step);
  void MouseOver(const QObject* watched);
  void TellLeaveSoon();
  void TellLeave();
  void TurnPages(int wheel);

  Hands& hands_;
  PictureView* wallpaper_ = nullptr;
  CaptionLabel* ground_ = nullptr;
  CellFrame* frame_ = nullptr;
  std::array<PhotoCell*, kCells> cells_{};
  const ShapeState& pointed_;
  const ControlState& save_;    ///< shown while a ficha is being typed
  const ControlState& retire_;  ///< shown while one is on display
  CellGrid grid_;
  int wheel_ = 0;        ///< turned so far towards the next page
  bool leaves_ = false;  ///< the pointer has left, and the station doesn't know yet
  bool dimmed_ = false;
};

}  // namespace vintoral
