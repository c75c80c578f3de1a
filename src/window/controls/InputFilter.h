// Sees every event of the window before its widgets: all keys go to the station, and clicks and the pointer
// go to the control that the widget shows.
#pragma once

#include <QObject>
#include <QPoint>

class QInputMethodEvent;
class QMouseEvent;
class QWidget;

namespace vintoral {

class Hands;
class Mirror;

class InputFilter : public QObject {
 public:
  InputFilter(QWidget& window, Mirror& mirror, Hands& hands);
  /// Nothing passes any more.
  void Close();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool InWindow(const QObject* watched) const;
  bool InputMethod(QObject* watched, QInputMethodEvent& event);
  void Hover(const QObject* watched);
  bool Press(QObject* watched, const QMouseEvent& event);
  void Replay(QObject& watched, QEvent& event);
  void Release(const QObject* watched, const QMouseEvent& event);

  QWidget& window_;
  Mirror& mirror_;
  Hands& hands_;
  const QObject* pressed_ = nullptr;
  bool replaying_ = false;
};

}  // namespace vintoral
