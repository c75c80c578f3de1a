// A part of a slip as it will come out of the printer: a text in the slip's own type, and the paper's edge
// behind its last column. What is written beyond the edge stands beside the paper.
#pragma once

#include "window/controls/TextEditor.h"

namespace vintoral {

class SlipText : public TextEditor {
 public:
  static constexpr int kColumns = 31;
  explicit SlipText(QWidget* parent);
  static QFont SlipFont();

  /// The height at which it shows so many lines, none of them in part.
  int HeightFor(int lines) const;
  /// How many lines a height has room for.
  int LinesIn(int height) const;
  /// The width up to the edge and some columns beyond it.
  int UsualWidth() const;
  /// The columns from `column` on, both from 0, of a line of a text that has not been scrolled.
  QRect Place(int line, double column, double columns) const;
  int Pitch() const { return pitch_; }
  /// A line that will not be printed.
  void ShowPale(int line, bool pale);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void PaintOutline() override;

 private:
  int Edge() const;
  QColor SideColor() const;
  void ShowPaleLines();
  int pitch_;
  double advance_;
  std::vector<int> pale_;
};

}  // namespace vintoral
