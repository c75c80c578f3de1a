#include "common/Numbers.h"
#include "records/Monitores.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::MarcarCelda() {
  const std::int64_t numero = LeadingInteger(Trim(TxtCampo[0].Text()));
  ShpCelda.Cell = -1;
  ShpCelda.Visible = true;
  for (std::int32_t cell = 0; cell < kCeldas && InicioPagina + cell <= TotalVista(); ++cell) {
    const RegistroFicha& ficha = VistaFichas[static_cast<std::size_t>(InicioPagina + cell - 1)];
    // The row that a ficha has left in the history may bear the same number.
    if (ficha.Posicion == numero && EstaDentro(ficha)) ShpCelda.Cell = cell;
  }
}

}  // namespace vintoral
