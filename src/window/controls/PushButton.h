// A button with its name on it.
#pragma once

#include <QAbstractButton>

namespace vintoral {

class PushButton : public QAbstractButton {
 public:
  enum class Rank { kPlain, kMain };  ///< the main one of a window stands out
  PushButton(Rank rank, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  QColor Ground() const;
  Rank rank_;
};

}  // namespace vintoral
