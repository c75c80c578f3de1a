// A key of the keypad: a digit, or the words of what it does.
#pragma once

#include <QAbstractButton>

namespace vintoral {

class KeypadKey : public QAbstractButton {
 public:
  KeypadKey(const QString& text, QWidget* parent);

  /// At which places of the password it was pressed: "1", "1 4"; empty for none.
  void ShowMarks(const QString& marks);
  const QString& Marks() const { return marks_; }
  /// All digits are there: this is the key to press.
  void ShowReady(bool ready);
  bool Ready() const { return ready_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  QColor Ground() const;
  QString marks_;
  bool ready_ = false;
};

}  // namespace vintoral
