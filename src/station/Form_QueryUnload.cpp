#include "station/form1/Form1.h"
#include "station/form1/PreguntaCierre.h"

namespace vintoral {

bool Form1::Form_QueryUnload() {
  if (TotalFichas <= 0) return true;
  if (platform_.screen.Show(PreguntaCierre()) != Answer::kYes) return false;
  TotalFichas = 0;
  return true;
}

}  // namespace vintoral
