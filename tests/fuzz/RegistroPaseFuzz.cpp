// Any bytes as a pass: what was read and written reads the same again, and no entry is ever made of nothing.
#include <algorithm>

#include "entry/Pase.h"
#include "records/RegistroPase.h"

namespace {

using vintoral::Moment;
using R = vintoral::RegistroPase;

void Check(bool holds) {
  if (!holds) __builtin_trap();
}

void CheckWorth(const R& pass) {
  const Moment today =
      Moment::From({.year = 2026, .month = 11, .day = 20, .hour = 14, .minute = 0, .second = 0}).value();
  const vintoral::Vigencia worth = vintoral::VigenciaDe(pass, today);
  Check(!(worth.vale && worth.vencida));
  Check(!worth.vale || (worth.quedan >= 1 && worth.quedan <= 32'768));
  Check(worth.unidad == (pass.ModoPase == 0 ? 0 : 1) || !worth.vale);
}

void CheckUse(R pass) {
  const R used = vintoral::PaseUsado(pass);
  Check(pass.ModoPase == 0 || used == pass);
  Check(used.RestantesPase <= pass.RestantesPase);
  // A pass of entries is spent by as many uses as it has, and by one where it has none.
  if (pass.ModoPase != 0 || pass.CodigoPase.Trimmed().Empty()) return;
  const int entries = std::max<int>(pass.RestantesPase, 1);
  for (int uses = 0; uses < entries; ++uses) {
    Check(!pass.CodigoPase.Trimmed().Empty());
    pass = vintoral::PaseUsado(pass);
  }
  Check(pass.CodigoPase.Trimmed().Empty());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  std::array<char, R::kSize> bytes{};
  std::copy_n(data, std::min(size, bytes.size()), bytes.begin());
  const R record = R::Decode(bytes);
  const auto written = record.Encode();
  Check(R::Decode(written) == record && R::Decode(written).Encode() == written);
  CheckWorth(record);
  CheckUse(record);
  return 0;
}
