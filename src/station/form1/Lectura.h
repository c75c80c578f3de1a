// A reader of bar codes at the idle screen: it is a keyboard, and types its code wherever the focus is.
#pragma once

#include <cstdint>
#include <optional>

#include "common/KeyBurst.h"
#include "common/String.h"

namespace vintoral {

class Control;
class Form1;

class Lectura {
 public:
  explicit Lectura(Form1& form) : form_(form) {}

  /// A character on its way to the focused control of an idle screen in barcode mode. True when it belongs to
  /// a code and goes no further.
  bool Recibir(char character);
  /// A whole code has been looked for: an Enter right behind it is the reader's.
  void Leida();
  /// That Enter?
  bool TerminaEnEnter() const;

 private:
  void Empezar();
  bool Completa() const;
  void Devolver() const;

  Form1& form_;
  KeyBurst rafaga_;
  Control* campo_ = nullptr;           ///< where it types
  String antes_;                       ///< what that field held before
  int elegido_ = -1;                   ///< of a list: the item that was chosen before
  std::optional<std::int64_t> leida_;  ///< in Clock::Ticks
};

}  // namespace vintoral
