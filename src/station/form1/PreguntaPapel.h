// The questions before a report: on a slip too, and how much of it.
#pragma once

#include <optional>

#include "platform/Screen.h"

namespace vintoral {

struct PapelInforme {
  bool tira = false;     ///< on a slip besides the page
  bool detalle = false;  ///< row by row, not the summary alone
};

/// Yes to `enTira` leads to `soloResumen`; nothing where the operator has thought better of it.
std::optional<PapelInforme> PreguntarPapel(Screen& screen, const String& titulo, const String& enTira,
                                           const String& soloResumen);

}  // namespace vintoral
