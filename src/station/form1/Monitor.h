// What a press on the tool bar left on: the three monitors above all.
#pragma once

#include <algorithm>
#include <array>

#include "common/Numbers.h"
#include "station/form1/Form1.h"

namespace vintoral {

inline bool IsPressed(const PictureBox& button) {
  return button.BorderStyle == 1;
}

/// In the order of their lights.
inline constexpr std::array kMonitores = {boton::kUltimosEnIngresar, boton::kTiempoDePermanencia,
                                          boton::kUltimosEnSalir};

/// Is one of the three monitors on?
inline bool HayMonitor(const Form1& form) {
  return std::any_of(kMonitores.begin(), kMonitores.end(),
                     [&](boton::Index monitor) { return IsPressed(form.PctBoton[monitor]); });
}

/// What the box of the minutes reads while no monitor is on.
inline String TextoSinMonitor(const Form1& form) {
  return String(11, ' ') + form.LblInfo[2].Caption + " MONITOR"_w;
}

/// The minutes of the monitor, as they stand in their box; what is typed beyond a million counts as one.
inline int MinutosDelMonitor(const Form1& form) {
  constexpr std::int64_t kMost = 1'000'000;
  return static_cast<int>(std::clamp<std::int64_t>(LeadingInteger(form.CboMinutos.Text()), 0, kMost));
}

}  // namespace vintoral
