#include "records/RegistroCodigo.h"

#include "records/LayoutCodigo.h"

namespace vintoral {

RegistroCodigo RegistroCodigo::Decode(std::span<const char, kSize> bytes) {
  RegistroCodigo record;
  coding::Read(kLayoutCodigo, bytes.data(), record);
  return record;
}

std::array<char, RegistroCodigo::kSize> RegistroCodigo::Encode() const {
  std::array<char, kSize> bytes;
  coding::Write(kLayoutCodigo, *this, bytes.data());
  return bytes;
}

}  // namespace vintoral
