// A report of fichas as a slip: its rows where they are asked for, and the summary by category.
#pragma once

#include <cstdint>

#include "platform/PrintDocument.h"
#include "records/RegistroFicha.h"
#include "reports/DatosInforme.h"
#include "reports/ResumenCategorias.h"
#include "reports/Suma.h"

namespace vintoral {

class TiraFichas {
 public:
  /// `datos` has a format, and must outlive the slip.
  explicit TiraFichas(const DatosInforme& datos);

  /// `fecha` is the day that it stands under.
  void Fila(const RegistroFicha& ficha, const String& fecha);
  void CerrarDia(const Suma& subtotal);
  PrintDocument Terminar(std::int64_t registros, const Suma& total);

 private:
  void Cabeza(const String& titulo, const String& columnas);
  void CerrarLista(std::int64_t registros, const Suma& total);
  void Cierre(std::int64_t registros, const Suma& total);

  const DatosInforme& datos_;
  PrintDocument tira_;
  ResumenCategorias resumen_;
  bool faltaFecha_ = true;  ///< no row stands under the present day yet
};

}  // namespace vintoral
