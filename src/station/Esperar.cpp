#include "station/form1/Form1.h"

namespace vintoral {

void Form1::Esperar(int segundos) {
  constexpr std::int64_t kSecond = 1000;
  platform_.screen.Wait(segundos * kSecond);
}

}  // namespace vintoral
