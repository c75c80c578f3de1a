// The contact sheet of the fichas: its head with count and monitor, and fifty cells over the wallpaper.
#pragma once

#include <QWidget>
#include <array>

#include "window/controls/Card.h"

namespace vintoral {

class CaptionLabel;
class PictureView;
struct Stage;

/// The cells, placed in ten columns and five rows over all the room there is.
class CellSheet : public QWidget {
 public:
  CellSheet(Stage& stage, QWidget* parent);
  /// The rectangle of a cell; that of no cell is the default place of the frame.
  QRect CellRect(int cell) const;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Place();
  PictureView* wallpaper_;
  std::array<PictureView*, 50> cells_{};
  CaptionLabel* ground_;
  QWidget* shade_;
  CellFrame* frame_;
};

class GridPanel : public QWidget {
 public:
  GridPanel(Stage& stage, QWidget* parent);

 private:
  QWidget* BuildHead(Stage& stage);
};

}  // namespace vintoral
