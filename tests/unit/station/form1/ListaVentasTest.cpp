// A sale into the list on a disk that writes the list later, and what a start finds after a power cut.
#include "station/form1/ListaVentas.h"

#include <gtest/gtest.h>

#include "records/DiarioVentas.h"
#include "records/RegistroExtra.h"
#include "station/form1/Archivos.h"
#include "support/Bytes.h"
#include "support/FaultyDisk.h"
#include "support/MemoryDisk.h"
#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using archivo::kDiarioVentas;
using archivo::kVentas;
using test::Faults;

std::string Line(std::int16_t quantity) {
  return test::Encoded(
      RegistroExtra{"20/11/26"_w, "CAFE           "_w, false, Money::FromUnits(5), 1405, quantity});
}

std::string ListOf(const std::string& lines) {
  return lines + ListaExtrasEnBlanco().Bytes().substr(lines.size());
}

constexpr const char* kNone = "(missing)";

class ListaVentasTest : public testing::Test {
 protected:
  ListaVentasTest() {
    memory_.Put(kVentas, ListOf(""));
    EXPECT_TRUE(Put(1));
  }
  Outcome Put(std::int16_t quantity) { return PonerEnListaVentas(disk_, Line(quantity)); }
  std::string List() const { return memory_.Get(kVentas); }
  std::string Journal() const { return memory_.Get(kDiarioVentas); }
  /// What the disk has of the list is older than what was sold.
  void CutThePower(const std::string& list) {
    memory_.Put(kVentas, list);
    memory_.SetBootId("otro");
  }

  test::MemoryDisk memory_;
  test::FaultyDisk disk_{memory_};
};

TEST_F(ListaVentasTest, ASaleWaitsForItsEntryAlone) {
  const int before = memory_.Syncs();
  ASSERT_TRUE(Put(2));
  EXPECT_EQ(memory_.Syncs(), before + 1);
  EXPECT_EQ(List(), ListOf(Line(2) + Line(1)));
  EXPECT_EQ(Journal().size(), kLugarDiario);
  EXPECT_EQ(LeerDiario(Journal()).anotaciones.size(), 2u);
}

TEST_F(ListaVentasTest, APowerCutTakesNothingThatWasSold) {
  ASSERT_TRUE(Put(2));
  const std::string journal = Journal(), sold = List();
  for (const std::string& back : {ListOf(""), ListOf(Line(1)), sold}) {
    memory_.Put(kDiarioVentas, journal);
    CutThePower(back);
    const int before = memory_.Syncs();
    EXPECT_TRUE(AsentarListaVentas(disk_));
    EXPECT_EQ(List(), sold);
    EXPECT_GT(memory_.Syncs(), before);
    EXPECT_EQ(Journal(), kNone);
  }
}

TEST_F(ListaVentasTest, AStationThatWasKilledFindsTheListAsItLeftIt) {
  memory_.Put(kVentas, ListOf(""));  // the sale was noted, and its list had no time to come
  EXPECT_TRUE(AsentarListaVentas(disk_));
  EXPECT_EQ(List(), ListOf(""));
  EXPECT_EQ(Journal(), kNone);
}

TEST_F(ListaVentasTest, AStartBringsThemBackBeforeItReadsTheLock) {
  test::MemoryStation station;
  station.Disk.Put(kVentas, ListOf(""));
  station.Disk.Put(kDiarioVentas, Journal());
  station.Disk.SetBootId("otro");
  station.StartConnected();
  EXPECT_EQ(station.Disk.Get(kVentas).substr(0, 46), Line(1));
  EXPECT_EQ(station.Disk.Get(kDiarioVentas), kNone);
}

TEST_F(ListaVentasTest, TheEndOfTheProgramLeavesNoJournal) {
  test::MemoryStation station;
  station.StartConnected();
  ASSERT_TRUE(PonerEnListaVentas(station.Disk, Line(7)));
  ASSERT_NE(station.Disk.Get(kDiarioVentas), kNone);
  station.Form.Form_Unload();
  EXPECT_EQ(station.Disk.Get(kDiarioVentas), kNone);
  EXPECT_EQ(station.Disk.Get(kVentas).substr(0, 46), Line(7));
}

TEST_F(ListaVentasTest, AJournalThatIsFullBeginsAnew) {
  // 128 entries of 512 bytes each fill it; one was made above.
  for (std::int16_t quantity = 2; quantity <= 128; ++quantity)
    ASSERT_TRUE(Put(quantity));
  ASSERT_EQ(LeerDiario(Journal()).anotaciones.size(), 128u);
  ASSERT_TRUE(Put(129));
  EXPECT_EQ(LeerDiario(Journal()).anotaciones.size(), 1u);
  EXPECT_EQ(Journal().size(), kLugarDiario);
  EXPECT_EQ(List().substr(0, 92), Line(129) + Line(128));
}

TEST_F(ListaVentasTest, ASaleTooLongForTheJournalIsWaitedForItself) {
  std::string lines;
  for (std::int16_t line = 1; line <= 1500; ++line)
    lines += Line(line);
  const int before = memory_.Syncs();
  ASSERT_TRUE(PonerEnListaVentas(disk_, lines));
  EXPECT_EQ(memory_.Syncs(), before + 1);
  EXPECT_EQ(List(), ListOf(lines + Line(1)));
  EXPECT_EQ(LeerDiario(Journal()).anotaciones.size(), 1u);
}

TEST_F(ListaVentasTest, AnyOtherFileSystemIsWaitedForItself) {
  ASSERT_TRUE(AsentarListaVentas(disk_));
  memory_.SetLeavesOldOrNew(false);
  const int before = memory_.Syncs();
  ASSERT_TRUE(Put(2));
  EXPECT_EQ(memory_.Syncs(), before + 1);
  EXPECT_EQ(List(), ListOf(Line(2) + Line(1)));
  EXPECT_EQ(Journal(), kNone);
}

TEST_F(ListaVentasTest, WhereStartsOfTheMachineLookTheSameTheListIsWaitedFor) {
  ASSERT_TRUE(AsentarListaVentas(disk_));
  ASSERT_EQ(Journal(), kNone);
  memory_.SetBootId("");
  const int before = memory_.Syncs();
  ASSERT_TRUE(Put(2));
  EXPECT_EQ(memory_.Syncs(), before + 1);
  EXPECT_EQ(List(), ListOf(Line(2) + Line(1)));
  EXPECT_EQ(Journal(), kNone);
}

TEST_F(ListaVentasTest, WithoutAJournalTheListIsWaitedFor) {
  disk_.Set().failWrite = 1;  // the entry's
  const int before = memory_.Syncs();
  ASSERT_TRUE(Put(2));
  EXPECT_EQ(memory_.Syncs(), before + 1);
  EXPECT_EQ(List(), ListOf(Line(2) + Line(1)));
  EXPECT_EQ(LeerDiario(Journal()).anotaciones.size(), 1u);
}

TEST_F(ListaVentasTest, ASaleThatFailedDoesNotComeBack) {
  disk_.Set().failWrite = 2;  // the list's
  EXPECT_FALSE(Put(2));
  disk_.Repair();
  EXPECT_EQ(List(), ListOf(Line(1)));
  EXPECT_EQ(LeerDiario(Journal()).anotaciones.size(), 1u);
  CutThePower(ListOf(Line(1)));
  EXPECT_TRUE(AsentarListaVentas(disk_));
  EXPECT_EQ(List(), ListOf(Line(1)));
}

TEST_F(ListaVentasTest, WhatCantBeSettledKeepsItsJournal) {
  const std::string journal = Journal();
  CutThePower(ListOf(""));
  for (const auto fault : {&Faults::failRead, &Faults::failWrite}) {
    disk_.Set().*fault = fault == &Faults::failRead ? 2 : 1;
    EXPECT_FALSE(AsentarListaVentas(disk_));
    EXPECT_EQ(Journal(), journal);
    EXPECT_EQ(List(), ListOf(""));
    disk_.Repair();
  }
  EXPECT_TRUE(AsentarListaVentas(disk_));
  EXPECT_EQ(List(), ListOf(Line(1)));
}

TEST_F(ListaVentasTest, AJournalInWhichNothingStandsChangesNothing) {
  memory_.Put(kDiarioVentas, "no es un diario");
  const int before = memory_.Syncs();
  EXPECT_TRUE(AsentarListaVentas(disk_));
  EXPECT_EQ(memory_.Syncs(), before);
  EXPECT_EQ(Journal(), kNone);
}

}  // namespace
}  // namespace vintoral
