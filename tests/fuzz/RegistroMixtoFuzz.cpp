// Any bytes as a record with self-describing fields. A text that ran past its record is cut at the first
// writing; from then on nothing changes.
#include <algorithm>

#include "records/RegistroMixto.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  using R = vintoral::RegistroMixto;
  std::array<char, R::kSize> bytes{};
  std::copy_n(data, std::min(size, bytes.size()), bytes.begin());
  const R record = R::Decode(bytes);
  const R again = R::Decode(record.Encode());
  const bool tail = again.Marca == record.Marca && again.Importe == record.Importe;
  if (!tail || again.Numero1 != record.Numero1 || again.Numero2 != record.Numero2) __builtin_trap();
  const bool begins = TextOf(record.CampoA).Bytes().starts_with(TextOf(again.CampoA).Bytes());
  if (!begins || again.Encode() != record.Encode()) __builtin_trap();
  return 0;
}
