// The list of new users and that of the points given, each a page.
#pragma once

#include <array>

#include "common/Outcome.h"
#include "records/Register.h"
#include "records/RegistroFicha.h"
#include "reports/DatosInforme.h"
#include "reports/Escritor.h"

namespace vintoral {

enum class Documento {
  kNuevos,  ///< Vintoral.NSR, whose record 1 is the blank one
  kPuntos,  ///< Vintoral.CRD, whose record 1 is a movement
};

struct DatosDocumento {
  Documento documento = Documento::kNuevos;
  String porteria;  ///< "01"
  String ahora;     ///< a stamp
  std::array<String, 5> etiquetas;
  bool turnoActivo = false;
  std::int64_t limite = 0;  ///< at most so many records are read, the newest
  FotoInforme foto;
  SigueInforme sigue = SigueSiempre;
};

/// From the last whole record back, in a shift down to the one that was last when it began. What can't be
/// read ends the list, with a line on standard error; the outcome is that of writing, or EsInterrumpido.
Outcome EscribirDocumentoID(const DatosDocumento& datos, const Register<RegistroFicha>& archivo,
                            Destino destino);

}  // namespace vintoral
