// What the operator is asked before the program ends, by the station, or by its window while the station
// waits for the folder.
#pragma once

#include "platform/Screen.h"

namespace vintoral {

inline Box PreguntaCierre() {
  return {"Vintoral - Cerrar Aplicación"_w,
          "¿Desea realmente salir del programa?"_w,
          Icon::kExclamation,
          {Answer::kYes, Answer::kNo},
          Answer::kNo};
}

}  // namespace vintoral
