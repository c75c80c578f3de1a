#include "records/RegistroPase.h"

#include "records/LayoutPase.h"

namespace vintoral {

RegistroPase RegistroPase::Decode(std::span<const char, kSize> bytes) {
  RegistroPase record;
  coding::Read(kLayoutPase, bytes.data(), record);
  return record;
}

std::array<char, RegistroPase::kSize> RegistroPase::Encode() const {
  std::array<char, kSize> bytes;
  coding::Write(kLayoutPase, *this, bytes.data());
  return bytes;
}

}  // namespace vintoral
