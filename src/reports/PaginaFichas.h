// A report of fichas as a page.
#pragma once

#include <cstdint>

#include "records/RegistroFicha.h"
#include "reports/DatosInforme.h"
#include "reports/PaginaTabla.h"
#include "reports/Suma.h"

namespace vintoral {

class PaginaFichas {
 public:
  /// `datos` must outlive the page.
  PaginaFichas(const DatosInforme& datos, Destino destino);

  void Fila(const RegistroFicha& ficha);
  void CerrarDia(const Suma& subtotal);
  /// Whether all of it was written.
  Outcome Terminar(std::int64_t registros, const Suma& total);

 private:
  const DatosInforme& datos_;
  PaginaTabla tabla_;
};

}  // namespace vintoral
