// A text of several lines in a fixed pitch, as the station says it stands. Like TextField: keys never reach
// it, the mouse moves the caret and marks text, and the box tells of it.
//
// Places are told and taken in characters of a text whose lines end in CR LF: a line end counts two, and no
// caret stands inside one. The clicks arrive at viewport().
#pragma once

#include <QPlainTextEdit>
#include <functional>
#include <vector>

#include "window/controls/MarkMargin.h"

namespace vintoral {

class TextEditor : public QPlainTextEdit {
 public:
  explicit TextEditor(QWidget* parent);

  /// The caret or the marked characters changed by the mouse: start and length.
  std::function<void(int, int)> onCaret;
  /// Something was pasted by the mouse; line ends stand as the clipboard has them.
  std::function<void(const QString&)> onPaste;
  /// The line and column of the caret, from 1, and what is remarked on that line: the shown text, its caret
  /// or its marks are others.
  std::function<void(std::size_t line, std::size_t column, const QString& remark)> onPlace;

  /// What is shown keeps its place: the box does not scroll.
  void ShowText(const QString& text);
  /// Shows the caret at `start`, or `length` characters marked from there with the caret at their end, or at
  /// their start. A new place is scrolled into view.
  void ShowCaret(int start, int length, bool caretFirst = false);
  /// Without the stripe of the caret's line and the margin of the warnings: a text that is looked at as a
  /// whole.
  void BePlain();
  /// What is locked is marked and copied, not changed.
  void ShowLocked(bool locked);
  /// A warning beside each line whose text here is not empty, with that text for a tooltip.
  void ShowReasons(const QStringList& reasons);

 protected:
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  /// What stands around the text.
  virtual void PaintOutline();

 private:
  int ToDocument(int offset) const;
  int FromDocument(int position) const;
  std::vector<MarkMargin::Row> Rows() const;
  void ShowStripe();
  void TellCaret();
  void Copy() const;
  void PasteFrom(bool selection);

  QString text_;   ///< with CR LF
  QString shown_;  ///< as the document holds it, one character a line end
  MarkMargin* margin_;
  bool plain_ = false;
  std::pair<int, int> place_;  ///< of caret or selection, as it was shown last
};

}  // namespace vintoral
