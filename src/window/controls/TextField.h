// An entry box that shows what the station says it holds. Keys never reach it: the station decides what they
// do. The mouse moves the caret and marks text here as everywhere, and the box tells of it.
#pragma once

#include <QLineEdit>
#include <functional>

namespace vintoral {

class TextField : public QLineEdit {
 public:
  explicit TextField(QWidget* parent);

  /// The caret or the marked characters changed by the mouse: start and length.
  std::function<void(int, int)> onCaret;
  /// Something was pasted by the mouse.
  std::function<void(const QString&)> onPaste;

  /// Shows the caret at `start`, or `length` characters marked from there. Marks are seen while the keyboard
  /// is here.
  void ShowCaret(int start, int length);
  /// Without an outline, and open to the mouse behind it, until it is unlocked: a label edited in place.
  void BePlainWhenLocked();
  void ShowLocked(bool locked);
  /// The text stands so close to the edges: a box as high as its line, among the columns of a slip.
  void SetInset(int pixels);
  /// Wide enough for `characters` of usual width.
  void SetWidthFor(int characters);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  bool HasKeyboard() const;
  void Mark();
  void TellCaret();
  void PasteFrom(bool selection);
  int start_ = 0, length_ = 0;
  bool plainWhenLocked_ = false;
  bool pressed_ = false;  ///< here, by the left button
};

}  // namespace vintoral
