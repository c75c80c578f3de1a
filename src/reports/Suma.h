// A sum of money on paper: one that has run over shows "¡ERROR!", and whatever it is added to does so too.
#pragma once

#include <cstdint>

#include "common/Money.h"
#include "common/String.h"

namespace vintoral {

class Suma {
 public:
  Suma() = default;
  explicit Suma(Money valor) : valor_(valor) {}
  /// `veces` times the price.
  static Suma Producto(std::int64_t veces, Money precio);

  Suma& operator+=(const Suma& otra);
  /// Rounded to cents.
  Suma ACentavos() const;
  /// "#0.00".
  String Texto() const;

  friend bool operator==(const Suma&, const Suma&) = default;

 private:
  Money valor_;
  bool desbordada_ = false;
};

/// "$ 1500.00": the currency without the blanks around it, a blank, the amount.
String ConMoneda(const String& moneda, const Suma& suma);

}  // namespace vintoral
