#include "station/form1/Commands.h"
#include "station/form1/Form1.h"
#include "station/form1/Monitor.h"

namespace vintoral {

void Form1::PctBoton_MouseMove(int Index) {
  const auto i = static_cast<std::size_t>(Index);
  const ButtonCommand& row = ButtonCommands()[i];
  PctBoton[i].ToolTipText = String::FromUtf8(IsPressed(PctBoton[i]) ? row.tooltipPressed : row.tooltip);
}

}  // namespace vintoral
