// A report of fichas: its page always, its slip where one is asked for, both of the same rows and sums.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "common/Outcome.h"
#include "platform/PrintDocument.h"
#include "records/Register.h"
#include "records/RegistroFicha.h"
#include "reports/PaginaFichas.h"
#include "reports/TiraFichas.h"

namespace vintoral {

struct InformeHecho {
  Outcome pagina;                     ///< whether it was written whole, or ended, EsInterrumpido
  std::optional<PrintDocument> tira;  ///< for the printer
};

class InformeFichas {
 public:
  /// `datos` must outlive the report.
  InformeFichas(const DatosInforme& datos, Destino destino);

  void Fila(const RegistroFicha& ficha, const String& fecha);
  /// The subtotal of the rows since the last one.
  void CerrarDia();
  InformeHecho Terminar(std::int64_t registros);
  /// The operator has had enough: no page, no slip.
  static InformeHecho Interrumpir() { return {.pagina = InformeInterrumpido(), .tira = {}}; }

 private:
  PaginaFichas pagina_;
  std::optional<TiraFichas> tira_;
  Suma subtotal_, total_;
};

/// The rows of a view, in their order; of one that is no longer in use the count alone tells.
InformeHecho InformeEstado(const DatosInforme& datos, std::span<const RegistroFicha> vista, Destino destino);

/// The exits of the history from its last whole record back: those of the shift, or of the last day in it.
/// Record 1 is the blank one of each history. What can't be read ends it, with a line on standard error.
InformeHecho InformeHistorial(const DatosInforme& datos, const Register<RegistroFicha>& historial,
                              bool turnoActivo, Destino destino);

}  // namespace vintoral
