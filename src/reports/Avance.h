// Work over years of data takes its time: it is seen how far it is, and Esc ends it.
#pragma once

#include "platform/Screen.h"
#include "station/form1/Form1.h"

namespace vintoral {

class Avance {
 public:
  /// `que` is done as long as this lives.
  Avance(const Form1& form, String que) : form_(form), que_(std::move(que)) {}
  Avance(const Avance&) = delete;
  Avance& operator=(const Avance&) = delete;
  ~Avance() { form_.Devices().screen.Worked(); }

  /// So much of it is done, 0 to 1. False when it is to end.
  bool Sigue(double hecho) {
    interrumpido_ = !form_.Devices().screen.Working(que_, hecho) || form_.Terminado();
    return !interrumpido_;
  }
  bool Interrumpido() const { return interrumpido_; }

 private:
  const Form1& form_;
  String que_;
  bool interrumpido_ = false;
};

}  // namespace vintoral
