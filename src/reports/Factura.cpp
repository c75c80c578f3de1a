#include "reports/Factura.h"

#include <cmath>
#include <vector>

#include "common/Numbers.h"
#include "reports/Tira.h"
#include "station/form1/Papel.h"

namespace vintoral {
namespace {

const String& LineBreak() {
  static const String lineBreak(kFinDeLinea);
  return lineBreak;
}

// Where the room of a line is too narrow it has no blanks and is longer: an invoice without its number or its
// total would be worth nothing.

String LineaNumero(const DatosFactura& datos) {
  constexpr std::size_t kRoom = 26;
  const String prefix = PrefijoDe(datos.formato), number = Digits(datos.formato.NumFactura);
  return prefix + "  "_w + number + Blancos(kRoom, prefix.Size() + number.Size()) + "P"_w + datos.porteria;
}

String LineaFecha(const DatosFactura& datos) {
  return "HORA/FECHA  "_w + StampOf(datos.ahora);
}

const String& CabezaDeVenta() {
  static const String head = "DESCRIPCION     CANT      VALOR"_w;
  return head;
}

/// Two amounts below each other, both ending in the column of the first.
String Debajo(const String& primero, const String& segundo) {
  return Blancos(primero.Size(), segundo.Size()) + segundo;
}

/// Nothing without a tax.
std::optional<String> BloqueImpuesto(const DatosFactura& datos) {
  const float percent = Porcentaje(datos.porcentaje);
  if (percent <= 0) return std::nullopt;
  const Desglose parts = Desglosar(datos.valor, percent);
  const String base = parts.base.Format();
  return ReglaIguales() + LineBreak() + "     BASE "_w + base + LineBreak() + " IMPUESTO "_w +
         Debajo(base, parts.impuesto.Format()) + " ("_w + TextoPorcentaje(percent) + "%)"_w;
}

String LineaTotal(const DatosFactura& datos) {
  constexpr std::size_t kRoom = 24;
  const String currency = Trim(datos.moneda), value = datos.valor.Format();
  return Blancos(kRoom, currency.Size() + value.Size()) + "TOTAL "_w + currency + " "_w + value;
}

bool EsEstadia(const DatosFactura& datos) {
  return std::string_view(datos.detalle).find(kMarca) != std::string_view::npos;
}

void ImprimirVenta(PrintDocument& tira, const DatosFactura& datos) {
  tira.Print(CabezaDeVenta());
  tira.Print(ReglaGuiones());
  tira.Print(TrimRight(datos.detalle));
}

/// The first line in bold, the lines up to the mark plain, the closing lines in bold.
void ImprimirEstadia(PrintDocument& tira, const DatosFactura& datos) {
  const std::string_view detail = datos.detalle;
  const std::size_t mark = detail.find(kMarca);
  const std::size_t first = std::min(detail.find(kFinDeLinea), mark);
  ImprimirNegrita(tira, Left(detail, first));
  const std::size_t begin = first + kFinDeLinea.size();
  if (begin + kFinDeLinea.size() <= mark)
    tira.Print(String(detail.substr(begin, mark - kFinDeLinea.size() - begin)));
  ImprimirNegrita(tira, String(detail.substr(mark + 1)));
}

void ImprimirEfectivo(PrintDocument& tira, const DatosFactura& datos) {
  if (!datos.efectivo || datos.efectivo->cambio.Empty()) return;
  const String cash = MoneyFromText(datos.efectivo->entregado).Format();
  tira.Print(" EFECTIVO "_w + cash);
  tira.Print("   CAMBIO "_w + Debajo(cash, MoneyFromText(datos.efectivo->cambio).Format()));
}

}  // namespace

Desglose Desglosar(Money valor, float porcentaje) {
  constexpr auto kScale = static_cast<double>(Money::kScale);
  const double quotient =
      static_cast<double>(valor.Raw()) / kScale / (1 + static_cast<double>(porcentaje) / 100);
  // Below the end of the range by more than the precision there: the value itself may lie at the end.
  constexpr double kMost = 9.2e18;
  const double raw = std::nearbyint(std::clamp(quotient * kScale, -kMost, kMost));
  const Money base = Money::FromRaw(static_cast<std::int64_t>(raw)).RoundedToCents();
  return {base, (valor - base).RoundedToCents()};
}

PrintDocument FacturaImpresa(const DatosFactura& datos) {
  PrintDocument tira = EmpezarTira(datos.formato.Impresora.Trimmed(), datos.formato.DimFuente);
  tira.Print(TrimRight(datos.formato.Encabezado.View()));
  ImprimirNegrita(tira, LineaNumero(datos));
  ImprimirNegrita(tira, LineaFecha(datos));
  tira.Print(ReglaGuiones());
  if (EsEstadia(datos)) {
    ImprimirEstadia(tira, datos);
  } else {
    ImprimirVenta(tira, datos);
  }
  if (const std::optional<String> tax = BloqueImpuesto(datos)) tira.Print(*tax);
  tira.Print(ReglaIguales());
  ImprimirNegrita(tira, LineaTotal(datos));
  ImprimirEfectivo(tira, datos);
  tira.Print(ReglaGuiones());
  TerminarTira(tira, datos.direccion, datos.formato.Pie.View());
  return tira;
}

String FacturaEnRegistro(const DatosFactura& datos) {
  const String threeBreaks = LineBreak() + LineBreak() + LineBreak();
  std::vector<String> lines = {TrimRight(datos.formato.Encabezado.View()), LineaNumero(datos),
                               LineaFecha(datos), ReglaGuiones()};
  if (!EsEstadia(datos)) lines.insert(lines.end(), {CabezaDeVenta(), ReglaGuiones()});
  lines.push_back(Trim(ReplaceAll(datos.detalle, std::string_view(&kMarca, 1), {})));
  if (const std::optional<String> tax = BloqueImpuesto(datos)) lines.push_back(*tax);
  lines.insert(lines.end(), {ReglaIguales(), LineaTotal(datos), ReglaGuiones(), LineaPie(datos.direccion)});
  String text = threeBreaks;
  for (const String& line : lines)
    text += line + LineBreak();
  return text + TrimRight(datos.formato.Pie.View()) + threeBreaks + threeBreaks;
}

}  // namespace vintoral
