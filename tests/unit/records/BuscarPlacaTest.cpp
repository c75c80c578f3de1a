#include "records/BuscarPlaca.h"

#include <gtest/gtest.h>

#include "support/Bytes.h"
#include "support/FaultyDisk.h"
#include "support/MemoryDisk.h"

namespace vintoral {
namespace {

using test::Blanks;
using test::Encoded;
using test::Hex;
using test::MemoryDisk;
using test::Zeros;

Result<std::int64_t> FindUser(const std::string& file, std::string_view plate, std::int64_t from = 1) {
  MemoryDisk disk;
  disk.Put("USR", file);
  const Register<RegistroUsuario> users(disk, "USR", OpenMode::kRead);
  return BuscarPlaca(users, plate, from, users.Count().PassOver().value_or(0));
}

std::string UserField(const std::string& field) {
  return field + Blanks(20 - field.size()) + Blanks(100) + Zeros(4);
}

Result<std::int64_t> FindInside(const std::string& file, std::string_view plate, std::int64_t last = 1000) {
  MemoryDisk disk;
  disk.Put("ACT", file);
  const Register<RegistroFicha> act(disk, "ACT", OpenMode::kRead);
  return BuscarPlacaDentro(act, plate, last);
}

std::string Slot(const std::string& used, const std::string& plate) {
  return Hex(used) + Blanks(44) + plate + Blanks(20 - plate.size()) + Blanks(104) + Zeros(18);
}

TEST(BuscarPlaca, FirstMatchCounts) {
  const std::string file = UserField("AAA111") + UserField("BBB222") + UserField("BBB222");
  EXPECT_EQ(FindUser(file, "BBB222"), 2);
  EXPECT_EQ(FindUser(file, "AAA111"), 1);
  EXPECT_EQ(FindUser(file, "CCC333"), 0);
}

TEST(BuscarPlaca, LooksFromOneUserOn) {
  const std::string file = UserField("AAA111") + UserField("BBB222") + UserField("AAA111");
  EXPECT_EQ(FindUser(file, "AAA111", 1), 1);
  EXPECT_EQ(FindUser(file, "AAA111", 2), 3);
  EXPECT_EQ(FindUser(file, "AAA111", 3), 3);
  EXPECT_EQ(FindUser(file, "AAA111", 4), 0);
  EXPECT_EQ(FindUser(file, "BBB222", 3), 0);
}

TEST(BuscarPlaca, CaseAndBlanksAroundDoNotCount) {
  const std::string file = UserField("") + UserField(
                                               "  \xD1"
                                               "anDU 7");
  EXPECT_EQ(FindUser(file,
                     "\xF1"
                     "ANdu 7"),
            2);
  EXPECT_EQ(FindUser(file,
                     "  \xD1"
                     "ANDU 7 "),
            2);
}

TEST(BuscarPlaca, FieldCountsAsAWhole) {
  const std::string file = UserField("ABC1234") + UserField("ABC 123") + UserField("XABC123");
  EXPECT_EQ(FindUser(file, "ABC123"), 0);
  EXPECT_EQ(FindUser(file, "ABC12345"), 0);
  const std::string full = UserField("ABCDEFGHIJKLMNOPQRST");
  EXPECT_EQ(FindUser(full, "ABCDEFGHIJKLMNOPQRST"), 1);
  EXPECT_EQ(FindUser(full, "ABCDEFGHIJKLMNOPQRSTU"), 0);
}

TEST(BuscarPlaca, LettersOutsideTheRegularRowsFoldToo) {
  EXPECT_EQ(FindUser(UserField("\x9A"
                               "1"),
                     "\x8A"
                     "1"),
            1);
  EXPECT_EQ(FindUser(UserField("\x9F"
                               "1"),
                     "\xFF"
                     "1"),
            1);
}

TEST(BuscarPlaca, EmptyPlateFindsNobody) {
  EXPECT_EQ(FindUser(UserField(""), ""), 0);
  EXPECT_EQ(FindUser(UserField(""), "   "), 0);
  EXPECT_EQ(FindInside(Slot("FF FF", ""), ""), 0);
}

TEST(BuscarPlaca, AZeroByteIsACharacter) {
  const std::string file = UserField(std::string("AAA111\0", 7));
  EXPECT_EQ(FindUser(file, "AAA111"), 0);
  EXPECT_EQ(FindUser(file, std::string_view("AAA111\0", 7)), 1);
}

TEST(BuscarPlaca, TornUserIsNoUserYet) {
  EXPECT_EQ(FindUser(UserField("AAA111") + "BBB222" + Blanks(14), "BBB222"), 0);
}

TEST(BuscarPlaca, FindsTheLastOfVeryMany) {
  std::string file;
  for (int i = 1; i <= 5000; ++i)
    file += UserField("PLATE" + std::to_string(i));
  EXPECT_EQ(FindUser(file, "plate5000"), 5000);
  EXPECT_EQ(FindUser(file, "plate5001"), 0);
}

TEST(BuscarPlaca, FailingSystemIsNoEmptyRegister) {
  MemoryDisk memory;
  test::FaultyDisk disk(memory);
  memory.Put("USR", UserField("AAA111"));
  const Register<RegistroUsuario> users(disk, "USR", OpenMode::kRead);
  disk.Set().failRead = 1;
  EXPECT_EQ(BuscarPlaca(users, "AAA111", 1, 1).Why().Error(), EIO);
  EXPECT_EQ(BuscarPlaca(users, "AAA111", 1, 1), 1);
  const Register<RegistroUsuario> missing(disk, "NO", OpenMode::kRead);
  EXPECT_EQ(BuscarPlaca(missing, "AAA111", 1, 1).Why().Error(), ENOENT);
}

TEST(BuscarPlacaDentro, LooksAtSlotsInUseAlone) {
  const std::string file = Slot("00 00", "ABC123") + Slot("FF FF", "XYZ") + Slot("00 01", "abc123");
  EXPECT_EQ(FindInside(file, "ABC123"), 3);
  EXPECT_EQ(FindInside(file, "XYZ"), 2);
  EXPECT_EQ(FindInside(Slot("00 00", "ABC123"), "ABC123"), 0);
}

TEST(BuscarPlacaDentro, FailingSystemIsNoEmptyRegister) {
  MemoryDisk memory;
  test::FaultyDisk disk(memory);
  memory.Put("ACT", Slot("FF FF", "A1"));
  const Register<RegistroFicha> act(disk, "ACT", OpenMode::kRead);
  disk.Set().failRead = 1;
  EXPECT_EQ(BuscarPlacaDentro(act, "A1", 1000).Why().Error(), EIO);
  EXPECT_EQ(BuscarPlacaDentro(act, "A1", 1000), 1);
}

TEST(BuscarPlacaDentro, StopsAtTheLastSlot) {
  const std::string file = Slot("FF FF", "A1") + Slot("FF FF", "B2");
  EXPECT_EQ(FindInside(file, "B2", 1), 0);
  EXPECT_EQ(FindInside(file, "B2", 2), 2);
}

}  // namespace
}  // namespace vintoral
