// What is going on beside the fichas: the indicators, the panic alert and its mail.
#pragma once

#include <QWidget>

class QHBoxLayout;

namespace vintoral {

struct Stage;

class StatusPanel : public QWidget {
 public:
  StatusPanel(Stage& stage, QWidget* parent);

 private:
  QHBoxLayout* BuildAlert(Stage& stage);
  QHBoxLayout* BuildIndicators(Stage& stage);
};

}  // namespace vintoral
