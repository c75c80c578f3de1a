// Every register cut at every byte, and scrambled: what is whole is read, what is torn is read as far as it
// goes, and writing makes the file whole again.
#include <gtest/gtest.h>

#include <random>

#include "records/Register.h"
#include "records/RegistroEtiquetas.h"
#include "records/RegistroFicha.h"
#include "records/RegistroMixto.h"
#include "records/RegistroUsuario.h"
#include "support/Bytes.h"
#include "support/MemoryDisk.h"

namespace vintoral {
namespace {

constexpr const char* kFile = "Registro";
constexpr std::size_t kRecords = 3;

template <class R>
class CutRegister : public testing::Test {};

using Records = testing::Types<RegistroFicha, RegistroUsuario, RegistroEtiquetas, RegistroMixto>;
TYPED_TEST_SUITE(CutRegister, Records);

/// Legal records whose every byte differs from that of a blank one.
template <class R>
std::string FullFile() {
  return std::string(kRecords * R::kSize, '\x02');
}

template <class R>
std::string Rewritten(std::string_view bytes) {
  return test::Encoded(test::Decoded<R>(bytes));
}

TYPED_TEST(CutRegister, ReadsWhatIsThere) {
  using R = TypeParam;
  const std::string whole = FullFile<R>();
  const std::string blank = test::Encoded(R{});
  for (std::size_t cut = 0; cut <= whole.size(); ++cut) {
    test::MemoryDisk disk;
    disk.Put(kFile, whole.substr(0, cut));
    const Register<R> registro(disk, kFile, OpenMode::kRead);
    ASSERT_EQ(registro.Count(), static_cast<std::int64_t>(cut / R::kSize));
    std::string seen;
    ASSERT_TRUE(registro.WalkBytes(1, 99, [&](std::int64_t, std::span<const char> bytes) {
      seen.append(bytes.data(), bytes.size());
      return true;
    }));
    const std::size_t torn = cut % R::kSize;
    ASSERT_EQ(seen, whole.substr(0, cut) + (torn == 0 ? "" : blank.substr(torn))) << cut;
    for (std::size_t number = 1; number <= kRecords + 1; ++number) {
      const auto record = registro.Read(static_cast<std::int64_t>(number));
      ASSERT_TRUE(record);
      seen.resize((kRecords + 1) * R::kSize, '\0');
      if ((number - 1) * R::kSize >= cut) {
        ASSERT_EQ(*record, R{}) << cut;
      } else {
        ASSERT_EQ(test::Encoded(*record), Rewritten<R>(seen.substr((number - 1) * R::kSize, R::kSize)))
            << cut;
      }
    }
  }
}

TYPED_TEST(CutRegister, AppendMakesItWholeAgain) {
  using R = TypeParam;
  const std::string whole = FullFile<R>();
  const std::string blank = test::Encoded(R{});
  for (std::size_t cut = 0; cut <= whole.size(); ++cut) {
    test::MemoryDisk disk;
    disk.Put(kFile, whole.substr(0, cut));
    Register<R> registro(disk, kFile, OpenMode::kReadWrite);
    ASSERT_TRUE(registro.Append([](std::int64_t) { return R{}; }));
    ASSERT_EQ(disk.Get(kFile), whole.substr(0, cut / R::kSize * R::kSize) + blank) << cut;
  }
}

TYPED_TEST(CutRegister, WriteOfTheLastSlotMakesItWholeAgain) {
  using R = TypeParam;
  const std::string whole = FullFile<R>();
  const std::string blank = test::Encoded(R{});
  const R record = test::Decoded<R>(whole.substr(0, R::kSize));
  for (std::size_t cut = 0; cut <= whole.size(); ++cut) {
    test::MemoryDisk disk;
    disk.Put(kFile, whole.substr(0, cut));
    Register<R> registro(disk, kFile, OpenMode::kReadWrite);
    ASSERT_TRUE(registro.Write(kRecords, record, false));
    std::string expected = whole.substr(0, std::min(cut, (kRecords - 1) * R::kSize));
    while (expected.size() < (kRecords - 1) * R::kSize)
      expected += blank[expected.size() % R::kSize];
    ASSERT_EQ(disk.Get(kFile), expected + test::Encoded(record)) << cut;
  }
}

TYPED_TEST(CutRegister, ScrambledBytesSettleAfterOneWriting) {
  using R = TypeParam;
  std::mt19937 random(3);
  for (int round = 0; round < 1000; ++round) {
    std::string bytes(R::kSize, '\0');
    for (char& byte : bytes)
      byte = static_cast<char>(random() & 0xFF);
    const std::string once = Rewritten<R>(bytes);
    ASSERT_EQ(Rewritten<R>(once), once);
  }
}

}  // namespace
}  // namespace vintoral
