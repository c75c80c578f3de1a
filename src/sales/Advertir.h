// The second question before something is reset that can't be had back.
#pragma once

#include "platform/Screen.h"

namespace vintoral {

/// `que` is about to be reset; false where the operator thinks better of it.
inline bool Advertir(Screen& screen, const String& que) {
  return screen.Show({"Vintoral - ADVERTENCIA"_w,
                      "Está a punto de reiniciar "_w + que + ".\r\n¿Desea continuar?"_w,
                      Icon::kCritical,
                      {Answer::kYes, Answer::kNo},
                      Answer::kNo}) == Answer::kYes;
}

}  // namespace vintoral
