// The fifteen buttons in groups of what belongs together, below them the lights of what is on, and the
// station's sign with the bars of its link.
#pragma once

#include <QWidget>
#include <initializer_list>
#include <vector>

class QHBoxLayout;
class QVBoxLayout;

namespace vintoral {

class Light;
struct Stage;

class ToolBar : public QWidget {
 public:
  ToolBar(Stage& stage, QWidget* parent);
  /// Of the link.
  const std::vector<Light*>& Bars() const { return bars_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void BuildGroup(Stage& stage, std::initializer_list<std::size_t> buttons, QHBoxLayout& row);
  void BuildLight(Stage& stage, std::size_t button, QVBoxLayout& column);
  void BuildLink(Stage& stage, QHBoxLayout& row);
  void PaintWells(QPainter& painter) const;
  std::vector<Light*> bars_;
  std::vector<QWidget*> places_;  ///< of what comes and goes
};

}  // namespace vintoral
