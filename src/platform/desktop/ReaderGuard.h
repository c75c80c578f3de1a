// Keeps a bar code reader from answering message boxes: it is a keyboard, and types whatever is on the
// screen.
#pragma once

#include <QObject>

#include "common/KeyBurst.h"

class QKeyEvent;

namespace vintoral {

class ReaderGuard : public QObject {
 public:
  /// Sees all keys of the application, which has started, from here on: the end of a code may come when its
  /// beginning has brought up a box.
  ReaderGuard();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool IsReaders(const QKeyEvent& key) const;
  KeyBurst burst_;
};

}  // namespace vintoral
