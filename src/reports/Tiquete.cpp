#include "reports/Tiquete.h"

#include <cmath>

#include "common/Numbers.h"
#include "reports/Tira.h"
#include "station/form1/Archivos.h"
#include "station/form1/Papel.h"

namespace vintoral {
namespace {

/// What stands left of a photo and of a bar code.
constexpr std::string_view kSangria = "--";

void ImprimirCabeza(PrintDocument& tira, const DatosTiquete& datos) {
  constexpr std::size_t kAnchoNumero = 16;
  tira.Print(TrimRight(datos.formato.Encabezado.View()));
  const String number = Trim(datos.ficha);
  ImprimirNegrita(tira,
                  "  No.FICHA  "_w + number + Blancos(kAnchoNumero, number.Size()) + "P"_w + datos.porteria);
  ImprimirNegrita(tira, "HORA/FECHA  "_w + datos.marca);
  tira.Print(ReglaGuiones());
}

void ImprimirCampos(PrintDocument& tira, const DatosTiquete& datos) {
  for (const CampoImpreso& campo : datos.campos) {
    if (!campo.imprimir) continue;
    tira.FontBold = &campo == datos.campos.data();  // the plate is what is looked for
    tira.Print(LineaDeCampo(campo.etiqueta, Upper(campo.valor)));
  }
  ImprimirNegrita(tira, "CATEGORIA : "_w + Left(Trim(datos.categoria), kAnchoValor));
}

/// 4 : 3, and as large as the type asks for.
void ImprimirFoto(PrintDocument& tira, const DatosTiquete& datos) {
  if (!datos.formato.Foto) return;
  tira.Print(ReglaIguales());
  const auto times = [&](int factor) { return static_cast<Twips>(std::lround(tira.FontSize * factor)); };
  const Twips width = times(320), height = times(240);
  // Without a photo its place stays free: two slips of one format are equally long.
  if (!datos.foto.Empty())
    tira.PaintPicture(datos.foto, tira.CurrentX + tira.TextWidth(kSangria), tira.CurrentY, width, height);
  tira.CurrentY += height;
}

void ImprimirCodigo(PrintDocument& tira, const DatosTiquete& datos) {
  if (!datos.codigo) return;
  tira.Print(ReglaIguales());
  tira.AddFontResource(archivo::kFuente);
  tira.CurrentX += tira.TextWidth(kSangria);
  const double text = tira.FontSize;
  tira.FontSize = 3 * text;
  tira.FontName = String(fuente::kBarras);
  tira.Print("*"_w + *datos.codigo + "*"_w);
  tira.RemoveFontResource(archivo::kFuente);
  tira.FontSize = text;
  tira.FontName = String(fuente::kTexto);
}

/// "     VALIDO 10 ENTRADAS"; nothing where the number leaves no room for it.
std::optional<String> LineaDeEntradas(const Validez& validez) {
  constexpr std::size_t kRoom = 16;
  // Half a blank too few is still none.
  if (validez.numero.Size() > kRoom + 1) return std::nullopt;
  const std::size_t left = Blancos(kRoom, validez.numero.Size()).Size() / 2;
  return String(left, ' ') + "VALIDO "_w + validez.numero + " ENTRADAS"_w;
}

/// "VALIDO 30 DIA(S)   (19/12/2026)"; nothing where the number leaves no room for it.
std::optional<String> LineaDeDias(const Validez& validez) {
  constexpr std::size_t kRoom = 3;
  constexpr std::int64_t kDay = 24LL * 60 * 60 * 1000;
  if (validez.numero.Size() > kRoom) return std::nullopt;
  const Moment last = validez.hoy.Plus((LeadingInteger(validez.numero) - 1) * kDay);
  return "VALIDO "_w + validez.numero + " DIA(S)"_w + Blancos(kRoom, validez.numero.Size()) + "  ("_w +
         DateText(last) + ")"_w;
}

void ImprimirValidez(PrintDocument& tira, const DatosTiquete& datos) {
  const Validez& validez = datos.validez;
  const double number = ValorNumerico(validez.numero);  // one and a half is more than one
  const bool days = validez.unidad == Validez::kDias;
  // A ticket for one entry needs no saying so.
  const bool says = number > 1 || (days && number > 0);
  if (!datos.codigo || !says) return;
  tira.Print(ReglaIguales());
  const bool entries = validez.unidad == Validez::kEntradas;
  const std::optional<String> line = days      ? LineaDeDias(validez)
                                     : entries ? LineaDeEntradas(validez)
                                               : std::nullopt;
  if (line) ImprimirNegrita(tira, *line);
}

}  // namespace

PrintDocument TiqueteImpreso(const DatosTiquete& datos) {
  PrintDocument tira = EmpezarTira(datos.formato.Impresora.Trimmed(), datos.formato.DimFuente);
  ImprimirCabeza(tira, datos);
  ImprimirCampos(tira, datos);
  ImprimirFoto(tira, datos);
  ImprimirCodigo(tira, datos);
  ImprimirValidez(tira, datos);
  tira.Print(ReglaGuiones());
  TerminarTira(tira, datos.direccion, datos.formato.Pie.View());
  return tira;
}

}  // namespace vintoral
