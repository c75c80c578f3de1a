#include "station/form1/Form1.h"

namespace vintoral {

void Form1::BuscarEnlaceYa() {
  constexpr int kSoonEnough =
      100;  // after the operation that missed the folder, and before the operator's next
  TmrConexion.SetInterval(kSoonEnough);
}

}  // namespace vintoral
