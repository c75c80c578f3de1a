#include "records/RegistroUsuario.h"

#include "records/LayoutUsuario.h"

namespace vintoral {

RegistroUsuario RegistroUsuario::Decode(std::span<const char, kSize> bytes) {
  RegistroUsuario record;
  coding::Read(kLayoutUsuario, bytes.data(), record);
  return record;
}

std::array<char, RegistroUsuario::kSize> RegistroUsuario::Encode() const {
  std::array<char, kSize> bytes;
  coding::Write(kLayoutUsuario, *this, bytes.data());
  return bytes;
}

}  // namespace vintoral
