// The list of sales with the lock of functions behind it, as tests write it out.
#pragma once

#include <string>
#include <string_view>

#include "records/RegistroExtra.h"
#include "support/Bytes.h"
#include "support/MemoryStation.h"

namespace vintoral::test {

inline constexpr const char* kExt = "Recursos\\Vintoral.EXT";
inline constexpr std::size_t kLockAt = 5000 * 46;

inline std::string TextField(std::string_view text) {
  return Hex("08 00") + static_cast<char>(text.size()) + Zeros(1) + std::string(text);
}
/// Record 5001, without what its fields leave over: no mark, 0, -1, 0.
inline std::string LockFields(std::string_view password, std::string_view functions) {
  return TextField(password) + TextField(functions) + Zeros(2) + Zeros(8) + Hex("FF FF") + Zeros(2);
}
inline std::string LockRecord(std::string_view password, std::string_view functions) {
  std::string record = LockFields(password, functions);
  record.resize(46, '\0');
  return record;
}
inline std::string ExtWith(std::string_view password, std::string_view functions) {
  return ListaExtrasEnBlanco().Bytes() + LockRecord(password, functions);
}

/// `position` alone is locked.
inline std::string Locking(std::size_t position) {
  std::string functions(18, '0');
  functions[position - 1] = '1';
  return functions;
}

}  // namespace vintoral::test
