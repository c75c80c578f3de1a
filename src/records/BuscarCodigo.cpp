#include "records/BuscarCodigo.h"

#include <span>

#include "common/String.h"
#include "records/FieldMatcher.h"
#include "records/LayoutCodigo.h"
#include "records/LayoutPase.h"

namespace vintoral {
namespace {

constexpr std::size_t kCodeOffset = coding::OffsetOf(kLayoutCodigo, &RegistroCodigo::CodigoBarras);
constexpr std::size_t kPassOffset = coding::OffsetOf(kLayoutPase, &RegistroPase::CodigoPase);
constexpr std::size_t kCodeWidth = decltype(RegistroPase::CodigoPase)::kWidth;
static_assert(kCodeWidth == decltype(RegistroCodigo::CodigoBarras)::kWidth);

template <class R, std::size_t Offset>
Result<std::int64_t> Find(const Register<R>& records, std::string_view code, std::int64_t last) {
  const FieldMatcher<kCodeWidth> matcher(code);
  std::int64_t found = 0;
  if (!matcher.Searches()) return 0;
  const auto visit = [&](std::int64_t number, std::span<const char, R::kSize> bytes) {
    if (matcher.Matches(bytes.data() + Offset)) found = number;
    return found == 0;
  };
  const Outcome walked = records.WalkBytes(1, last, visit);
  if (!walked) return walked;
  return found;
}

/// Does the code of record `number` stand in two pages? Then a write of it may have ended between them.
bool SpansPages(std::int64_t number) {
  const std::uint64_t from = static_cast<std::uint64_t>(number - 1) * RegistroPase::kSize + kPassOffset;
  return from / kPage != (from + kLargoCodigo - 1) / kPage;
}

bool IsFree(std::int64_t number, std::string_view code) {
  const std::size_t length = TrimBlanks(code).size();
  return length == 0 || (length != kLargoCodigo && SpansPages(number));
}

}  // namespace

Result<std::int64_t> BuscarCodigo(const Register<RegistroCodigo>& codigos, std::string_view codigo,
                                  std::int64_t ultimo) {
  return Find<RegistroCodigo, kCodeOffset>(codigos, codigo, ultimo);
}

Result<std::int64_t> BuscarPase(const Register<RegistroPase>& pases, std::string_view codigo) {
  Result<std::int64_t> count = pases.Count();
  if (!count) return count;
  return Find<RegistroPase, kPassOffset>(pases, codigo, *count);
}

Result<std::int64_t> LugarParaPase(const Register<RegistroPase>& pases) {
  Result<std::int64_t> count = pases.Count();
  if (!count) return count;
  std::int64_t place = *count + 1;
  const auto visit = [&](std::int64_t number, std::span<const char, RegistroPase::kSize> bytes) {
    const bool free = IsFree(number, {bytes.data() + kPassOffset, kCodeWidth});
    if (free) place = number;
    return !free;
  };
  const Outcome walked = pases.WalkBytes(1, *count, visit);
  if (!walked) return walked;
  return place;
}

Result<bool> LugarLibre(const Register<RegistroPase>& pases, std::int64_t lugar) {
  const Result<std::int64_t> count = pases.Count();
  if (!count) return count.Why();
  if (lugar > *count) return lugar == *count + 1;
  const Result<RegistroPase> there = pases.Read(lugar);
  if (!there) return there.Why();
  return IsFree(lugar, there->CodigoPase.View());
}

}  // namespace vintoral
