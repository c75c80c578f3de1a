// Any bytes as the code of a ficha: what was read and written reads the same again.
#include <algorithm>

#include "records/RegistroCodigo.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  using R = vintoral::RegistroCodigo;
  std::array<char, R::kSize> bytes{};
  std::copy_n(data, std::min(size, bytes.size()), bytes.begin());
  const R record = R::Decode(bytes);
  const auto written = record.Encode();
  if (R::Decode(written) != record || R::Decode(written).Encode() != written) __builtin_trap();
  return 0;
}
