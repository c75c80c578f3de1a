#include "safety/Diario.h"

#include <gtest/gtest.h>

#include "unit/safety/Diarios.h"

namespace vintoral {
namespace {

using test::BlankEntry;
using test::Entry;
using test::EntryOf;
using test::FullLog;
using test::PlaceOf;
using test::Records;

const RegistroFuncion kBlank = BlankEntry("21/11/2026  09:00");

TEST(Diario, AnEmptyOneIsAThousandBlankRecords) {
  const Diario log("", kBlank);
  ASSERT_EQ(log.Bytes().size(), 46'000u);
  for (std::size_t number = 1; number <= 1000; ++number)
    ASSERT_EQ(Records(log.Bytes(), number, number), PlaceOf(kBlank)) << number;
}

TEST(Diario, AWholeOneStaysAsItIs) {
  const std::string bytes = FullLog();
  const Diario log(bytes, kBlank);
  EXPECT_EQ(log.Bytes(), bytes);
  EXPECT_EQ(log.Leer(1), Entry("20/11/2026  08:00", 10, "06:00", 14, 0));
  EXPECT_EQ(log.Leer(1000), EntryOf(bytes, 1000));
}

TEST(Diario, WhatIsCutOffIsMadeUpByBlankRecords) {
  const std::string bytes = FullLog();
  for (const std::size_t length : {1u, 45u, 46u, 47u, 4096u, 45'953u, 45'954u, 45'999u}) {
    const Diario log(bytes.substr(0, length), kBlank);
    const std::size_t whole = length / 46;
    ASSERT_EQ(log.Bytes().size(), 46'000u) << length;
    EXPECT_EQ(log.Bytes().substr(0, whole * 46), bytes.substr(0, whole * 46)) << length;
    EXPECT_EQ(log.Leer(whole + 1), kBlank) << length;
    EXPECT_EQ(log.Leer(1000), kBlank) << length;
  }
}

TEST(Diario, WhatStandsBehindTheLastRecordIsLeftOut) {
  const Diario log(FullLog() + "more", kBlank);
  EXPECT_EQ(log.Bytes(), FullLog());
}

TEST(Diario, ComingDownLosesTheOldestAlone) {
  const std::string before = FullLog();
  Diario log(before, kBlank);
  log.Bajar(2);
  EXPECT_EQ(Records(log.Bytes(), 1, 2), Records(before, 1, 2));
  EXPECT_EQ(Records(log.Bytes(), 3, 1000), Records(before, 2, 999));
  log.Bajar(1);
  EXPECT_EQ(Records(log.Bytes(), 2, 3), Records(before, 1, 2));
  EXPECT_EQ(Records(log.Bytes(), 4, 1000), Records(before, 2, 998));
}

TEST(Diario, TheEndOfAPlaceStaysWithThePlace) {
  std::string bytes = FullLog();
  for (std::size_t number = 1; number <= 1000; ++number)
    bytes[number * 46 - 1] = static_cast<char>('a' + number % 26);
  Diario log(bytes, kBlank);
  log.Bajar(1);
  log.Poner(1, kBlank);
  for (std::size_t number = 1; number <= 1000; ++number) {
    const std::string place = Records(log.Bytes(), number, number);
    ASSERT_EQ(place[45], bytes[number * 46 - 1]) << number;
    const std::string moved = number == 1 ? PlaceOf(kBlank) : Records(bytes, number - 1, number - 1);
    ASSERT_EQ(place.substr(0, 44), moved.substr(0, 44)) << number;
  }
}

TEST(Diario, ScrambledBytesComeDownAsTheyAre) {
  std::string bytes(46'000, '\xFF');
  for (std::size_t i = 0; i < bytes.size(); ++i)
    bytes[i] = static_cast<char>(i * 7 % 251);
  Diario log(bytes, kBlank);
  log.Bajar(1);
  EXPECT_EQ(log.Bytes().size(), 46'000u);
  for (std::size_t number = 1; number < 1000; ++number)
    ASSERT_EQ(EntryOf(log.Bytes(), number + 1), EntryOf(bytes, number)) << number;
}

}  // namespace
}  // namespace vintoral
