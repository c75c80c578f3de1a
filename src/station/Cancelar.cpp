#include "station/form1/Form1.h"
#include "station/forms/Keys.h"

namespace vintoral {

void Form1::Cancelar() {
  Form_KeyDown(keys::kEscape, keys::kNoMask);
}

}  // namespace vintoral
