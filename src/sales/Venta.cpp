#include "sales/Venta.h"

#include <algorithm>
#include <limits>
#include <string>

#include "common/Numbers.h"
#include "records/RegistroExtra.h"
#include "station/form1/Papel.h"

namespace vintoral {
namespace {

constexpr Money kFinDelRango = Money::FromRaw(std::numeric_limits<std::int64_t>::max());

String EnColumna(std::string_view text, std::size_t width) {
  return Left(text, width) + String(width - std::min(width, text.size()), ' ');
}

/// The byte that marks the closing lines of a stay would make another invoice of a sale.
String NombreImpreso(std::string_view name) {
  return EnColumna(ReplaceAll(name, std::string_view(&kMarca, 1), " "), RegistroExtra::kAnchoArticulo);
}

String FilaDeFactura(const Renglon& renglon) {
  constexpr std::size_t kWidthOfQuantity = 3, kWidthOfValue = 12;
  return NombreImpreso(renglon.articulo) + " "_w + AlignRight(Digits(renglon.cantidad), kWidthOfQuantity) +
         AlignRight(ImporteDe(renglon.precio, renglon.cantidad).Format(), kWidthOfValue);
}

/// "20/11/26".
String FechaCorta(const Civil& day) {
  constexpr int kCentury = 100;
  return Digits(day.day, 2) + "/"_w + Digits(day.month, 2) + "/"_w + Digits(day.year % kCentury, 2);
}

RegistroExtra RegistroDe(const Renglon& renglon, const Civil& moment) {
  constexpr int kHours = 100;
  return {.FechaVenta = FechaCorta(moment),
          .Articulo = EnColumna(renglon.articulo, RegistroExtra::kAnchoArticulo),
          .MarcaTurnoExtra = false,
          .PrecioUnitario = renglon.precio,
          .HoraVenta = static_cast<std::int16_t>(moment.hour * kHours + moment.minute),
          .Cantidad = renglon.cantidad};
}

}  // namespace

Money ImporteDe(Money precio, std::int64_t cantidad) {
  std::int64_t raw = 0;
  return __builtin_mul_overflow(precio.Raw(), cantidad, &raw) ? kFinDelRango : Money::FromRaw(raw);
}

Money TotalDe(const std::vector<Renglon>& venta) {
  Money sum;
  for (const Renglon& renglon : venta)
    sum = sum + ImporteDe(renglon.precio, renglon.cantidad);
  return sum;
}

bool EsImporte(Money suma) {
  return suma < kFinDelRango;
}

String DetalleDeVenta(const std::vector<Renglon>& venta) {
  String detail;
  for (const Renglon& renglon : venta)
    detail += (detail.Empty() ? String() : String(kFinDeLinea)) + FilaDeFactura(renglon);
  return detail;
}

String LineasDeVenta(const std::vector<Renglon>& venta, Moment momento) {
  const Civil moment = momento.Parts();
  std::string lines;
  for (const Renglon& renglon : venta) {
    const auto bytes = RegistroDe(renglon, moment).Encode();
    lines.append(bytes.data(), bytes.size());
  }
  return String(std::move(lines));
}

}  // namespace vintoral
