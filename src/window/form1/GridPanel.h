// The grid of the fichas: its head with count and monitor, and the contact sheet below.
#pragma once

#include <QWidget>

namespace vintoral {

struct Stage;

class GridPanel : public QWidget {
 public:
  GridPanel(Stage& stage, QWidget* parent);

 private:
  QWidget* BuildHead(Stage& stage);
};

}  // namespace vintoral
