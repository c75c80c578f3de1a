#include "records/Register.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "records/ArchivosNuevos.h"
#include "records/RegistroEtiquetas.h"
#include "records/RegistroFicha.h"
#include "records/RegistroMixto.h"
#include "records/RegistroUsuario.h"
#include "support/Bytes.h"
#include "support/FaultyDisk.h"
#include "support/MemoryDisk.h"

namespace vintoral {
namespace {

using test::Blanks;
using test::Encoded;
using test::FaultyDisk;
using test::Hex;
using test::MemoryDisk;
using test::Zeros;
using testing::ElementsAre;
using Users = Register<RegistroUsuario>;
using Fichas = Register<RegistroFicha>;

constexpr const char* kUsr = "Multimedia\\Vintoral.USR";
constexpr const char* kHst = "Multimedia\\Vintoral.HST";

/// The record of a user with this plate and no more: 124 bytes.
std::string UserBytes(const std::string& plate, const std::string& points = "00 00 00 00") {
  return plate + Blanks(120 - plate.size()) + Hex(points);
}

RegistroUsuario User(std::string_view plate) {
  RegistroUsuario user;
  user.Placa = plate;
  return user;
}

std::vector<std::string> PlatesOf(const Users& users, std::int64_t first, std::int64_t last,
                                  std::size_t most = 1000) {
  std::vector<std::string> plates;
  const Outcome walked = users.Walk(first, last, [&](std::int64_t number, const RegistroUsuario& user) {
    plates.push_back(std::to_string(number) + " " + user.Placa.Trimmed().Bytes());
    return plates.size() < most;
  });
  EXPECT_TRUE(walked);
  return plates;
}

TEST(Register, MissingFileOpensClosed) {
  MemoryDisk disk;
  Users users(disk, kUsr, OpenMode::kReadWrite);
  EXPECT_FALSE(users);
  EXPECT_EQ(users.Opened().Error(), ENOENT);
  EXPECT_TRUE(users.Missing());
  EXPECT_EQ(users.Count().Why().Error(), ENOENT);
  EXPECT_EQ(users.Read(1).Why().Error(), ENOENT);
  const auto all = [](std::int64_t, const RegistroUsuario&) { return true; };
  EXPECT_EQ(users.Walk(1, 9, all).Error(), ENOENT);
  EXPECT_EQ(users.WalkBack(9, 1, all).Error(), ENOENT);
  EXPECT_EQ(users.EndsInACutRow().Why().Error(), ENOENT);
  EXPECT_EQ(users.DropCutRow().Error(), ENOENT);
  EXPECT_EQ(users.Write(1, User("A"), true).Error(), ENOENT);
  EXPECT_EQ(users.Append([](std::int64_t) { return User("A"); }).Error(), ENOENT);
  EXPECT_EQ(users.ReserveRow().Error(), ENOENT);
}

TEST(Register, ReadsOneRecordByNumber) {
  MemoryDisk disk;
  disk.Put(kUsr, UserBytes("AAA") + UserBytes("BBB", "2A 00 00 00"));
  const Users users(disk, kUsr, OpenMode::kRead);
  EXPECT_EQ(users.Count(), 2);
  EXPECT_EQ(users.Read(2)->Placa.Trimmed(), "BBB"_w);
  EXPECT_EQ(users.Read(2)->Puntos, 42);
}

TEST(Register, PastTheEndIsBlankAndBelowOneIsNothing) {
  MemoryDisk disk;
  disk.Put(kUsr, UserBytes("AAA"));
  const Users users(disk, kUsr, OpenMode::kRead);
  EXPECT_EQ(users.Read(2), RegistroUsuario{});
  EXPECT_EQ(users.Read(std::numeric_limits<std::int64_t>::max()), RegistroUsuario{});
  EXPECT_FALSE(users.Read(0));
  EXPECT_FALSE(users.Read(-1));
  EXPECT_FALSE(users.Read(std::numeric_limits<std::int64_t>::min()));
}

TEST(Register, TornRecordHasWhatItHasAndBlanksBehind) {
  MemoryDisk disk;
  disk.Put(kUsr, UserBytes("AAA") + "BBB" + Blanks(17) + "NOM");
  const Users users(disk, kUsr, OpenMode::kRead);
  EXPECT_EQ(users.Count(), 1);
  EXPECT_EQ(Encoded(*users.Read(2)), "BBB" + Blanks(17) + "NOM" + Blanks(97) + Zeros(4));
  EXPECT_THAT(PlatesOf(users, 1, 99), ElementsAre("1 AAA", "2 BBB"));
}

TEST(Register, TornLabelsHaveTheFlagsOfAMissingFile) {
  MemoryDisk disk;
  disk.Put("Vintoral.LBL", "FICHA" + Blanks(115) + Hex("FF FF 00 00"));
  const Register<RegistroEtiquetas> labels(disk, "Vintoral.LBL", OpenMode::kRead);
  EXPECT_EQ(labels.Read(1)->MemoriaRostros, -1);
  EXPECT_EQ(labels.Read(1)->ImprimirCampo, (std::array{false, true, true, true, true}));
}

TEST(Register, WalksAPartAndStopsWhenTold) {
  MemoryDisk disk;
  disk.Put(kUsr, UserBytes("A") + UserBytes("B") + UserBytes("C") + UserBytes("D"));
  const Users users(disk, kUsr, OpenMode::kRead);
  EXPECT_THAT(PlatesOf(users, 2, 3), ElementsAre("2 B", "3 C"));
  EXPECT_THAT(PlatesOf(users, -5, 1), ElementsAre("1 A"));
  EXPECT_THAT(PlatesOf(users, 4, std::numeric_limits<std::int64_t>::max()), ElementsAre("4 D"));
  EXPECT_THAT(PlatesOf(users, 1, 4, 2), ElementsAre("1 A", "2 B"));
  EXPECT_THAT(PlatesOf(users, 5, 9), ElementsAre());
  EXPECT_THAT(PlatesOf(users, 3, 2), ElementsAre());
}

TEST(Register, WalksBackFromTheLast) {
  MemoryDisk disk;
  disk.Put(kUsr, UserBytes("A") + UserBytes("B") + UserBytes("C") + "TORN");
  const Users users(disk, kUsr, OpenMode::kRead);
  const auto back = [&](std::int64_t last, std::int64_t first, std::size_t most) {
    std::vector<std::string> plates;
    EXPECT_TRUE(users.WalkBack(last, first, [&](std::int64_t number, const RegistroUsuario& user) {
      plates.push_back(std::to_string(number) + " " + user.Placa.Trimmed().Bytes());
      return plates.size() < most;
    }));
    return plates;
  };
  EXPECT_THAT(back(*users.Count(), 1, 9), ElementsAre("3 C", "2 B", "1 A"));
  EXPECT_THAT(back(std::numeric_limits<std::int64_t>::max(), 2, 9), ElementsAre("4 TORN", "3 C", "2 B"));
  EXPECT_THAT(back(3, 1, 1), ElementsAre("3 C"));
  EXPECT_THAT(back(0, 1, 9), ElementsAre());
}

/// More records than a block holds, so that the seams between blocks are walked too.
std::string ManyUsers(int count) {
  std::string bytes;
  for (int i = 1; i <= count; ++i)
    bytes += UserBytes("P" + std::to_string(i));
  return bytes;
}

TEST(Register, WalksOverBlocksBothWays) {
  constexpr int kUsers = 2000;
  MemoryDisk memory;
  FaultyDisk disk(memory);
  memory.Put(kUsr, ManyUsers(kUsers));
  const Users users(disk, kUsr, OpenMode::kRead);
  std::int64_t expected = 1;
  const auto check = [&](std::int64_t number, const RegistroUsuario& user) {
    EXPECT_EQ(number, expected);
    EXPECT_EQ(user.Placa.Trimmed().Bytes(), "P" + std::to_string(number));
    return true;
  };
  const int before = disk.Operations();
  EXPECT_TRUE(users.Walk(1, kUsers, [&](std::int64_t number, const RegistroUsuario& user) {
    check(number, user);
    return ++expected > 0;
  }));
  EXPECT_EQ(expected, kUsers + 1);
  // 248,000 bytes.
  EXPECT_LE(disk.Operations() - before, 2);
  expected = kUsers;
  EXPECT_TRUE(users.WalkBack(kUsers, 1, [&](std::int64_t number, const RegistroUsuario& user) {
    check(number, user);
    return --expected >= 0;
  }));
  EXPECT_EQ(expected, 0);
}

TEST(Register, WalkBytesShowsTheRecordAsItStands) {
  MemoryDisk disk;
  disk.Put(kUsr, UserBytes("A") + UserBytes("B", "01 02 03 04"));
  const Users users(disk, kUsr, OpenMode::kRead);
  std::string seen;
  EXPECT_TRUE(users.WalkBytes(2, 2, [&](std::int64_t, std::span<const char> bytes) {
    seen.assign(bytes.data(), bytes.size());
    return true;
  }));
  EXPECT_EQ(seen, UserBytes("B", "01 02 03 04"));
}

TEST(Register, WalkTellsWhenTheSystemFailed) {
  MemoryDisk memory;
  FaultyDisk disk(memory);
  memory.Put(kUsr, ManyUsers(2000));
  const Users users(disk, kUsr, OpenMode::kRead);
  disk.Set().failRead = 2;
  int seen = 0;
  const auto count = [&](std::int64_t, const RegistroUsuario&) { return ++seen > 0; };
  EXPECT_FALSE(users.Walk(1, 2000, count));
  EXPECT_GT(seen, 0);
  EXPECT_LT(seen, 2000);
  disk.Set().failRead = 1;
  EXPECT_FALSE(users.Read(1));
}

TEST(Register, WritesInPlace) {
  MemoryDisk disk;
  disk.Put(kUsr, UserBytes("A") + UserBytes("B") + UserBytes("C"));
  Users users(disk, kUsr, OpenMode::kReadWrite);
  EXPECT_TRUE(users.Write(2, User("NEW"), false));
  EXPECT_EQ(disk.Get(kUsr), UserBytes("A") + UserBytes("NEW") + UserBytes("C"));
  EXPECT_EQ(disk.Syncs(), 0);
  EXPECT_TRUE(users.Write(2, User("NEWER"), true));
  EXPECT_EQ(disk.Syncs(), 1);
}

TEST(Register, WriteRefusesNumbersThatNoRegisterHas) {
  MemoryDisk disk;
  disk.Put(kUsr, UserBytes("A"));
  Users users(disk, kUsr, OpenMode::kReadWrite);
  for (const std::int64_t number :
       {std::int64_t{0}, std::int64_t{-1}, std::int64_t{1} << 30, std::numeric_limits<std::int64_t>::max()})
    EXPECT_FALSE(users.Write(number, User("X"), false)) << number;
  EXPECT_EQ(disk.Get(kUsr), UserBytes("A"));
}

TEST(Register, WriteBeyondACutFillsTheGapWithBlankRecords) {
  MemoryDisk disk;
  disk.Put(kUsr, UserBytes("A") + "TORN");
  Users users(disk, kUsr, OpenMode::kReadWrite);
  EXPECT_TRUE(users.Write(5, User("E"), false));
  EXPECT_EQ(disk.Get(kUsr),
            UserBytes("A") + UserBytes("TORN") + UserBytes("") + UserBytes("") + UserBytes("E"));
}

TEST(Register, WriteFillsAGapLongerThanABlock) {
  MemoryDisk disk;
  disk.Put(kUsr, "");
  Users users(disk, kUsr, OpenMode::kReadWrite);
  EXPECT_TRUE(users.Write(2000, User("LAST"), false));
  std::string expected;
  for (int i = 1; i < 2000; ++i)
    expected += UserBytes("");
  EXPECT_EQ(disk.Get(kUsr), expected + UserBytes("LAST"));
}

TEST(Register, AppendTellsTheRowAndIsSynced) {
  MemoryDisk disk;
  disk.Put(kHst, HstNuevo());
  Fichas hst(disk, kHst, OpenMode::kReadWrite);
  EXPECT_TRUE(hst.Append([](std::int64_t row) {
    RegistroFicha ficha;
    ficha.EnUso = true;
    ficha.Posicion = static_cast<std::int32_t>(row);
    return ficha;
  }));
  EXPECT_EQ(disk.Get(kHst),
            Zeros(2) + Blanks(168) + Zeros(18) + Hex("FF FF") + Blanks(168) + Hex("02 00 00 00") + Zeros(14));
  EXPECT_EQ(disk.Syncs(), 1);
}

TEST(Register, AppendToAnEmptyFileIsRecordOne) {
  MemoryDisk disk;
  Users users(disk, "Vintoral.USR", OpenMode::kCreate);
  EXPECT_TRUE(users.Append([](std::int64_t row) { return User(row == 1 ? "FIRST" : "WRONG"); }));
  EXPECT_EQ(disk.Get("Vintoral.USR"), UserBytes("FIRST"));
}

TEST(Register, AppendOverwritesATornLastRecord) {
  for (std::size_t torn = 1; torn < 124; ++torn) {
    MemoryDisk disk;
    disk.Put(kUsr, UserBytes("A") + std::string(torn, 'X'));
    Users users(disk, kUsr, OpenMode::kReadWrite);
    EXPECT_TRUE(users.Append([](std::int64_t row) { return User(std::to_string(row)); }));
    EXPECT_EQ(disk.Get(kUsr), UserBytes("A") + UserBytes("2"));
  }
}

TEST(Register, AppendThatFillsTheDiskIsOverwrittenByTheNext) {
  MemoryDisk memory;
  FaultyDisk disk(memory);
  memory.Put(kUsr, UserBytes("A"));
  Users users(disk, kUsr, OpenMode::kReadWrite);
  disk.Set().failWrite = 1;
  disk.Set().tornBytes = 50;
  EXPECT_EQ(users.Append([](std::int64_t) { return User("B"); }).Error(), ENOSPC);
  EXPECT_EQ(memory.Get(kUsr).size(), 174u);
  EXPECT_TRUE(users.Append([](std::int64_t) { return User("C"); }));
  EXPECT_EQ(memory.Get(kUsr), UserBytes("A") + UserBytes("C"));
}

TEST(Register, FailuresOfTheSystemComeBack) {
  MemoryDisk memory;
  FaultyDisk disk(memory);
  memory.Put(kUsr, UserBytes("A"));
  Users users(disk, kUsr, OpenMode::kReadWrite);
  const auto append = [&] { return users.Append([](std::int64_t) { return User("B"); }); };
  disk.Set().failSync = true;
  EXPECT_EQ(users.Write(1, User("S"), true).Error(), EIO);
  EXPECT_TRUE(users.Write(1, User("S"), false));
  EXPECT_EQ(append().Error(), EIO);
  disk.Repair();
  disk.Set().failLength = true;
  EXPECT_EQ(users.Count().Why().Error(), EIO);
  EXPECT_EQ(users.Write(9, User("L"), false).Error(), EIO);
  EXPECT_EQ(append().Error(), EIO);
  EXPECT_EQ(users.ReserveRow().Error(), EIO);
  EXPECT_EQ(users.WalkBack(9, 1, [](std::int64_t, const RegistroUsuario&) { return true; }).Error(), EIO);
  EXPECT_EQ(users.EndsInACutRow().Why().Error(), EIO);
  EXPECT_EQ(users.DropCutRow().Error(), EIO);
  disk.Repair();
  disk.Set().failReserve = true;
  EXPECT_EQ(users.ReserveRow().Error(), ENOSPC);
  disk.Repair();
  disk.Set().goneAfter = 0;
  EXPECT_EQ(append().Error(), ENOTCONN);
  EXPECT_EQ(users.Read(1).Why().Error(), ENOTCONN);
  EXPECT_EQ(users.Count().Why().Error(), ENOTCONN);
  disk.Repair();
  EXPECT_EQ(memory.Get(kUsr), UserBytes("S") + UserBytes("B"));
}

TEST(Register, WriteIsOneLookAndOneWrite) {
  MemoryDisk memory;
  FaultyDisk disk(memory);
  memory.Put(kUsr, UserBytes("A") + UserBytes("B"));
  Users users(disk, kUsr, OpenMode::kReadWrite);
  const int before = disk.Operations();
  EXPECT_TRUE(users.Write(2, User("C"), true));
  EXPECT_EQ(disk.Operations() - before, 3);  // length, write, sync
}

/// Each look is a trip to the server where the folder lies on one.
TEST(Register, WhatIsKnownOfTheLengthIsNotLookedAtAgain) {
  MemoryDisk memory;
  FaultyDisk disk(memory);
  memory.Put(kUsr, UserBytes("A") + UserBytes("B"));
  Users users(disk, kUsr, OpenMode::kReadWrite);
  const auto operations = [&disk](const auto& work) {
    const int before = disk.Operations();
    EXPECT_TRUE(work());
    return disk.Operations() - before;
  };
  EXPECT_EQ(operations([&] { return users.Write(1, User("1"), false); }), 1);
  EXPECT_EQ(operations([&] { return users.Read(2); }), 1);
  EXPECT_EQ(operations([&] { return users.Write(2, User("2"), false); }), 1);
  const auto three = [](std::int64_t row) { return User(std::to_string(row)); };
  EXPECT_EQ(operations([&] { return users.Append(three); }), 3);  // length, write, sync
  EXPECT_EQ(memory.Get(kUsr), UserBytes("1") + UserBytes("2") + UserBytes("3"));
}

TEST(Register, WhatIsNotKnownOfTheLengthIsLookedAt) {
  MemoryDisk memory;
  FaultyDisk disk(memory);
  memory.Put(kUsr, UserBytes("A") + "TORN");
  Users users(disk, kUsr, OpenMode::kReadWrite);
  EXPECT_EQ(users.Read(2)->Placa.Trimmed(), "TORN"_w);
  EXPECT_EQ(users.Read(4)->Placa.Trimmed(), ""_w);  // reading behind the end makes nothing known
  EXPECT_TRUE(users.Write(4, User("4"), false));
  EXPECT_EQ(memory.Get(kUsr), UserBytes("A") + UserBytes("TORN") + UserBytes("") + UserBytes("4"));
  // Another gate appends: its row stays.
  EXPECT_EQ(users.Count(), 4);
  Users other(disk, kUsr, OpenMode::kReadWrite);
  EXPECT_TRUE(other.Append([](std::int64_t row) { return User(std::to_string(row)); }));
  EXPECT_TRUE(users.Append([](std::int64_t row) { return User(std::to_string(row)); }));
  EXPECT_TRUE(users.Write(8, User("8"), false));
  const std::string behind =
      UserBytes("4") + UserBytes("5") + UserBytes("6") + UserBytes("") + UserBytes("8");
  EXPECT_EQ(memory.Get(kUsr), UserBytes("A") + UserBytes("TORN") + UserBytes("") + behind);
}

TEST(Register, DropsARowThatWasCutAtTheEndOfAPage) {
  // 33 records of 124 bytes end at 4092, so the 34th lies across the pages.
  MemoryDisk disk;
  const std::string whole = Blanks(33 * 124);
  disk.Put(kUsr, whole + Blanks(4));
  Users users(disk, kUsr, OpenMode::kReadWrite);
  EXPECT_EQ(users.EndsInACutRow(), true);
  EXPECT_TRUE(users.DropCutRow());
  EXPECT_EQ(disk.Get(kUsr), whole);
  EXPECT_EQ(users.EndsInACutRow(), false);
  EXPECT_TRUE(users.DropCutRow());
  EXPECT_EQ(disk.Get(kUsr), whole);
}

TEST(Register, KeepsWhateverElseARegisterEndsIn) {
  MemoryDisk disk;
  for (const std::size_t length :
       {std::size_t{4097}, std::size_t{4095}, std::size_t{100}, std::size_t{0}, std::size_t{4096} * 31}) {
    disk.Put(kUsr, Blanks(length));
    Users users(disk, kUsr, OpenMode::kReadWrite);
    EXPECT_EQ(users.EndsInACutRow(), false) << length;
    EXPECT_TRUE(users.DropCutRow());
    EXPECT_EQ(disk.Get(kUsr).size(), length);
  }
}

}  // namespace
}  // namespace vintoral
