#include "station/form1/Form1.h"

namespace vintoral {

const RegistroFicha& Form1::FichaMostrada() const {
  const std::int64_t row = PctFicha.TagNumber();
  return row >= 1 && row <= TotalVista() ? VistaFichas[static_cast<std::size_t>(row - 1)] : FichaActual;
}

}  // namespace vintoral
