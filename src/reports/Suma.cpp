#include "reports/Suma.h"

namespace vintoral {

Suma Suma::Producto(std::int64_t veces, Money precio) {
  Suma product;
  std::int64_t raw = 0;
  product.desbordada_ = __builtin_mul_overflow(veces, precio.Raw(), &raw);
  if (!product.desbordada_) product.valor_ = Money::FromRaw(raw);
  return product;
}

Suma& Suma::operator+=(const Suma& otra) {
  std::int64_t raw = 0;
  const bool over = __builtin_add_overflow(valor_.Raw(), otra.valor_.Raw(), &raw);
  desbordada_ = desbordada_ || otra.desbordada_ || over;
  valor_ = valor_ + otra.valor_;
  return *this;
}

Suma Suma::ACentavos() const {
  Suma rounded = *this;
  rounded.valor_ = valor_.RoundedToCents();
  return rounded;
}

String Suma::Texto() const {
  return desbordada_ ? "¡ERROR!"_w : valor_.Format();
}

String ConMoneda(const String& moneda, const Suma& suma) {
  return Trim(moneda) + " "_w + suma.Texto();
}

}  // namespace vintoral
