#include "records/RegistroFicha.h"

#include "records/LayoutFicha.h"

namespace vintoral {

RegistroFicha RegistroFicha::Decode(std::span<const char, kSize> bytes) {
  RegistroFicha record;
  coding::Read(kLayoutFicha, bytes.data(), record);
  return record;
}

std::array<char, RegistroFicha::kSize> RegistroFicha::Encode() const {
  std::array<char, kSize> bytes;
  coding::Write(kLayoutFicha, *this, bytes.data());
  return bytes;
}

}  // namespace vintoral
