#include "entry/Codigo.h"

#include <string>

#include "records/BuscarCodigo.h"

namespace vintoral {
namespace {

/// One of `count` characters from `first` on.
char DrawFrom(Random& random, char first, int count) {
  return static_cast<char>(first + static_cast<int>(random.Draw() * count));
}

}  // namespace

String CodigoAlAzar(Random& random) {
  std::string code;
  while (code.size() < kLargoCodigo) {
    const bool digit = static_cast<int>(random.Draw() * 2) == 0;
    code += digit ? DrawFrom(random, '0', 10) : DrawFrom(random, 'A', 26);
  }
  return String(std::move(code));
}

}  // namespace vintoral
