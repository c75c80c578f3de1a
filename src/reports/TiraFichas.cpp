#include "reports/TiraFichas.h"

#include "reports/FilaFicha.h"
#include "reports/Renglones.h"
#include "reports/Tira.h"
#include "station/form1/Papel.h"

namespace vintoral {
namespace {

String SaltosDeLinea(int veces) {
  String breaks;
  for (int i = 0; i < veces; ++i)
    breaks += String(kFinDeLinea);
  return breaks;
}

}  // namespace

TiraFichas::TiraFichas(const DatosInforme& datos)
    : datos_(datos),
      tira_(EmpezarTira(datos.tira->impresora, datos.tira->tamano)),
      resumen_(datos.categorias) {
  if (!datos.tira->detalle) return;
  const String first = datos.cabeza.salidas ? "SALID"_w : "ENTRA"_w;
  Cabeza(datos.cabeza.titulo, first + " CATEGORIA TIEMPO    VALOR"_w);
}

void TiraFichas::Cabeza(const String& titulo, const String& columnas) {
  ImprimirNegrita(tira_, LineaTitulo(titulo, datos_.porteria));
  for (const String& line : datos_.cabeza.sellosTira)
    ImprimirNegrita(tira_, line);
  for (const String& line : {ReglaGuiones(), columnas, ReglaGuiones()})
    tira_.Print(line);
}

void TiraFichas::Fila(const RegistroFicha& ficha, const String& fecha) {
  resumen_.Contar(ficha);
  if (!datos_.tira->detalle) return;
  if (faltaFecha_) tira_.Print("("_w + fecha + ")"_w);
  faltaFecha_ = false;
  tira_.Print(LineaDeFila(ficha, datos_.busqueda));
}

void TiraFichas::CerrarDia(const Suma& subtotal) {
  if (datos_.tira->detalle) tira_.Print(LineaSubtotal(datos_.moneda, subtotal));
  faltaFecha_ = true;
}

void TiraFichas::Cierre(std::int64_t registros, const Suma& total) {
  tira_.Print(ReglaIguales());
  tira_.Print(LineaRegistros(registros));
  ImprimirNegrita(tira_, LineaTotal(datos_.moneda, total));
}

void TiraFichas::CerrarLista(std::int64_t registros, const Suma& total) {
  Cierre(registros, total);
  tira_.Print(SaltosDeLinea(2) + ReglaGuiones());
}

PrintDocument TiraFichas::Terminar(std::int64_t registros, const Suma& total) {
  if (datos_.tira->detalle) CerrarLista(registros, total);
  Cabeza(datos_.cabeza.resumen, "      CATEGORIA   CANT    VALOR"_w);
  for (const RenglonCategoria& renglon : resumen_.Renglones()) {
    for (const String& line : LineasDeCategoria(renglon))
      tira_.Print(line);
  }
  Cierre(registros, total);
  tira_.Print(SaltosDeLinea(3) + "."_w);
  return std::move(tira_);
}

}  // namespace vintoral
