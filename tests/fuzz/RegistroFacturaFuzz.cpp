// Any bytes as an invoice format: what was read and written reads the same again, and an invoice printed by
// it, whose texts are these bytes too, has its number, its total and the tax that it should, on paper and in
// the log. Formats are compared as bytes: a size that is no number equals nothing.
#include <algorithm>

#include "common/Numbers.h"
#include "records/Coding.h"
#include "records/RegistroFactura.h"
#include "reports/Factura.h"
#include "station/form1/Papel.h"

namespace {

using namespace vintoral;

DatosFactura InvoiceOf(const RegistroFactura& format, std::string_view text) {
  DatosFactura datos;
  datos.formato = format;
  datos.porteria = "01"_w;
  datos.moneda = Left(text, text.size() % 30);
  std::array<char, 8> amount{};
  text.copy(amount.data(), amount.size());
  datos.valor = Money::FromRaw(coding::Get<std::int64_t>(amount.data()) / 100 * 100);  // whole cents
  datos.detalle = datos.direccion = String(text);
  datos.porcentaje = format.Impuesto;
  if (text.size() % 2 == 0) datos.efectivo = {String(text), Left(text, 12)};
  return datos;
}

bool IsWhole(const DatosFactura& datos, const PrintDocument& invoice) {
  const String entry = FacturaEnRegistro(datos);
  const auto printedAndLogged = [&](const String& text) {
    const auto has = [&](const PrintOperation& operation) {
      return std::string_view(operation.text).find(text) != std::string_view::npos;
    };
    return std::any_of(invoice.Operations().begin(), invoice.Operations().end(), has) &&
           std::string_view(entry).find(text) != std::string_view::npos;
  };
  return printedAndLogged("  "_w + Digits(datos.formato.NumFactura)) &&
         printedAndLogged("TOTAL "_w + Trim(datos.moneda) + " "_w + datos.valor.Format());
}

bool AddsUp(Money amount, float percent) {
  if (percent <= 0) return true;
  const Desglose parts = Desglosar(amount, percent);
  return parts.base + parts.impuesto == amount;
}

bool StandsOnItsPaper(const PrintDocument& invoice) {
  const Twips below = invoice.Operations().back().y;
  PrintDocument rule;
  rule.FontSize = invoice.Operations().front().fontSize;
  return below > 0 && below < invoice.Height() && invoice.Width() >= rule.TextWidth(ReglaGuiones());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  using R = RegistroFactura;
  std::array<char, R::kSize> bytes{};
  std::copy_n(data, std::min(size, bytes.size()), bytes.begin());
  const R record = R::Decode(bytes);
  const auto written = record.Encode();
  if (R::Decode(written).Encode() != written) __builtin_trap();
  const DatosFactura datos = InvoiceOf(record, {reinterpret_cast<const char*>(data), size});
  const PrintDocument invoice = FacturaImpresa(datos);
  if (!IsWhole(datos, invoice) || !StandsOnItsPaper(invoice)) __builtin_trap();
  if (!AddsUp(datos.valor, Porcentaje(datos.porcentaje))) __builtin_trap();
  return 0;
}
