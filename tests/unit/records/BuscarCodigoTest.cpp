#include "records/BuscarCodigo.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/Bytes.h"
#include "support/FaultyDisk.h"
#include "support/MemoryDisk.h"

namespace vintoral {
namespace {

using test::Blanks;
using test::MemoryDisk;
using test::Zeros;

std::string Code(const std::string& code, const std::string& ficha = "0001") {
  return code + Blanks(50 - code.size()) + ficha;
}
std::string Pass(const std::string& code) {
  return code + Blanks(50 - code.size()) + Blanks(20) + Zeros(1) + Blanks(20) + Zeros(2);
}

Result<std::int64_t> FindCode(const std::string& file, std::string_view code, std::int64_t last = 1000) {
  MemoryDisk disk;
  disk.Put("CDB", file);
  const Register<RegistroCodigo> codes(disk, "CDB", OpenMode::kRead);
  return BuscarCodigo(codes, code, last);
}
Result<std::int64_t> FindPass(const std::string& file, std::string_view code) {
  MemoryDisk disk;
  disk.Put("CFR", file);
  const Register<RegistroPase> passes(disk, "CFR", OpenMode::kRead);
  return BuscarPase(passes, code);
}

TEST(BuscarCodigo, FirstMatchCounts) {
  const std::string file = Code("") + Code("AAAA00000000") + Code("BBBB00000000") + Code("BBBB00000000");
  EXPECT_EQ(FindCode(file, "AAAA00000000"), 2);
  EXPECT_EQ(FindCode(file, "BBBB00000000"), 3);
  EXPECT_EQ(FindCode(file, "CCCC00000000"), 0);
}

TEST(BuscarCodigo, CaseAndBlanksAroundDoNotCount) {
  const std::string file = Code("") + Code("  aaAA0000000b");
  EXPECT_EQ(FindCode(file, "AAaa0000000B"), 2);
  EXPECT_EQ(FindCode(file, " aaaa0000000b  "), 2);
}

TEST(BuscarCodigo, FieldCountsAsAWhole) {
  EXPECT_EQ(FindCode(Code("AAAA00000000"), "AAAA0000000"), 0);
  EXPECT_EQ(FindCode(Code("AAAA0000000"), "AAAA00000000"), 0);
  EXPECT_EQ(FindCode(Code("AAAA 0000000"), "AAAA0000000"), 0);
}

TEST(BuscarCodigo, AnEmptyCodeIsNobodys) {
  EXPECT_EQ(FindCode(Code(""), ""), 0);
  EXPECT_EQ(FindCode(Code(""), "   "), 0);
  EXPECT_EQ(FindPass(Pass(""), ""), 0);
  EXPECT_EQ(FindPass(Pass(""), "  "), 0);
}

TEST(BuscarCodigo, StopsAtTheLastSlot) {
  const std::string file = Code("AAAA00000000") + Code("BBBB00000000");
  EXPECT_EQ(FindCode(file, "BBBB00000000", 1), 0);
  EXPECT_EQ(FindCode(file, "BBBB00000000", 2), 2);
  EXPECT_EQ(FindCode(file, "AAAA00000000", 0), 0);
}

TEST(BuscarCodigo, ARegisterThatWasCutIsSearchedAsFarAsItGoes) {
  EXPECT_EQ(FindCode("", "AAAA00000000"), 0);
  EXPECT_EQ(FindCode(Code("") + "AAAA00000000", "AAAA00000000"), 2);  // its number is lost, its slot isn't
}

TEST(BuscarCodigo, FailingSystemIsNoEmptyRegister) {
  MemoryDisk memory;
  test::FaultyDisk disk(memory);
  memory.Put("CDB", Code("AAAA00000000"));
  const Register<RegistroCodigo> codes(disk, "CDB", OpenMode::kRead);
  disk.Set().failRead = 1;
  EXPECT_EQ(BuscarCodigo(codes, "AAAA00000000", 1000).Why().Error(), EIO);
  EXPECT_EQ(BuscarCodigo(codes, "AAAA00000000", 1000), 1);
  const Register<RegistroCodigo> missing(disk, "NO", OpenMode::kRead);
  EXPECT_EQ(BuscarCodigo(missing, "AAAA00000000", 1000).Why().Error(), ENOENT);
}

TEST(BuscarPase, LooksThroughAllOfThem) {
  std::string file;
  for (int i = 1; i <= 3000; ++i)
    file += Pass("P" + std::to_string(i));
  EXPECT_EQ(FindPass(file, "p1"), 1);
  EXPECT_EQ(FindPass(file, "P3000"), 3000);
  EXPECT_EQ(FindPass(file, "P3001"), 0);
  EXPECT_EQ(FindPass(file + Pass("P7"), " p7 "), 7);
}

TEST(BuscarPase, ATornLastRecordIsNoPassYet) {
  EXPECT_EQ(FindPass(Pass("AAAA00000000") + Pass("BBBB00000000").substr(0, 92), "BBBB00000000"), 0);
  EXPECT_EQ(FindPass(Pass("AAAA00000000") + Pass("BBBB00000000"), "BBBB00000000"), 2);
}

TEST(BuscarPase, FailingSystemIsNoEmptyRegister) {
  MemoryDisk memory;
  test::FaultyDisk disk(memory);
  memory.Put("CFR", Pass("AAAA00000000"));
  const Register<RegistroPase> passes(disk, "CFR", OpenMode::kRead);
  disk.Set().failRead = 1;
  EXPECT_EQ(BuscarPase(passes, "AAAA00000000").Why().Error(), EIO);
  EXPECT_EQ(BuscarPase(passes, "AAAA00000000"), 1);
  disk.Set().failLength = true;
  EXPECT_EQ(BuscarPase(passes, "AAAA00000000").Why().Error(), EIO);
}

}  // namespace
}  // namespace vintoral
