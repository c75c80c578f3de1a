#include "common/Numbers.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::LblCampo_Click() {
  const std::int64_t numero = LeadingInteger(Trim(TxtCampo[0].Text()));
  if (FichaEnCurso() || numero < 1 || numero > TotalFichas) return;
  MostrarFicha();
  SetFocus(&TxtCampo[0]);
}

}  // namespace vintoral
