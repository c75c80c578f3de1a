#include "station/form1/Form1.h"

namespace vintoral {

void Form1::PctBoton_MouseMove(int Index) {
  PictureBox& button = PctBoton[static_cast<std::size_t>(Index)];
  button.ToolTipText = button.ToolTipAhead();
}

}  // namespace vintoral
