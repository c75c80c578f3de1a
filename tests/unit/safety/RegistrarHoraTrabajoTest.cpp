#include <gtest/gtest.h>

#include "station/form1/Funciones.h"
#include "support/MemoryStation.h"
#include "unit/safety/Diarios.h"

namespace vintoral {
namespace {

using test::At;
using test::BlankEntry;
using test::Entry;
using test::EntryOf;
using test::FullLog;
using test::kFdr;
using test::MemoryStation;
using test::PlaceOf;
using test::Records;

class RegistrarHoraTrabajoTest : public testing::Test {
 protected:
  RegistrarHoraTrabajoTest() {
    station_.Disk.Put("Recursos\\x", "");
    form_.NumeroPorteria = "01"_w;
  }
  std::string Log() const { return station_.Disk.Get(kFdr); }
  RegistroFuncion At1() const { return EntryOf(Log(), 1); }

  MemoryStation station_{At(14, 5)};
  Form1& form_ = station_.Form;
};

// ---- A new file
// ---------------------------------------------------------------------------------------------

TEST_F(RegistrarHoraTrabajoTest, ANewFileHasAThousandRecordsToTheByte) {
  ASSERT_EQ(Log(), "(missing)");
  form_.RegistrarHoraTrabajo("0");
  // The first record ends when it began; all others are blank.
  std::string expected = PlaceOf(Entry("20/11/2026  14:05", 10, "00:00", 14, 5));
  for (int i = 2; i <= 1000; ++i)
    expected += PlaceOf(BlankEntry("20/11/2026  14:05"));
  EXPECT_EQ(Log(), expected);
}

TEST_F(RegistrarHoraTrabajoTest, AFileOfNoLengthIsANewOne) {
  station_.Disk.Put(kFdr, "");
  form_.RegistrarHoraTrabajo("25");
  EXPECT_EQ(Log().size(), 46'000u);
  EXPECT_EQ(At1(), Entry("20/11/2026  14:05", 10, "00:00", 14, 5));
  EXPECT_EQ(EntryOf(Log(), 2), Entry("20/11/2026  14:05", 125));
  EXPECT_EQ(EntryOf(Log(), 3), BlankEntry("20/11/2026  14:05"));
}

TEST_F(RegistrarHoraTrabajoTest, TheCodeIsOneNumberOfStationAndCode) {
  form_.NumeroPorteria = "02"_w;
  form_.RegistrarHoraTrabajo("14");
  EXPECT_EQ(EntryOf(Log(), 2).CodigoFuncion, Money::FromUnits(214));
  EXPECT_EQ(At1().CodigoFuncion, Money::FromUnits(20));
}

// ---- The running time of a day
// ---------------------------------------------------------------------------------------------

TEST_F(RegistrarHoraTrabajoTest, OnTheSameDayTheFirstRecordAloneChanges) {
  const std::string before = FullLog();  // the day began at 08:00
  station_.Disk.Put(kFdr, before);
  form_.TiempoEjecucion = 125;
  form_.RegistrarHoraTrabajo("0");
  EXPECT_EQ(At1(), Entry("20/11/2026  08:00", 10, "02:05", 10, 5));
  EXPECT_EQ(Records(Log(), 2, 1000), Records(before, 2, 1000));
}

TEST_F(RegistrarHoraTrabajoTest, AProgramThatHasJustStartedGoesOnCounting) {
  station_.Disk.Put(kFdr, FullLog());  // 06:00 by now
  ASSERT_EQ(form_.TiempoEjecucion, 0);
  form_.RegistrarHoraTrabajo("0");
  EXPECT_EQ(form_.TiempoEjecucion, 360);
  EXPECT_EQ(At1(), Entry("20/11/2026  08:00", 10, "06:00", 14, 0));
}

TEST_F(RegistrarHoraTrabajoTest, OneThatRunsKeepsItsOwnCount) {
  station_.Disk.Put(kFdr, FullLog());
  form_.TiempoEjecucion = 1;
  form_.RegistrarHoraTrabajo("0");
  EXPECT_EQ(form_.TiempoEjecucion, 1);
  EXPECT_EQ(At1().Tiempo, "00:01"_w);
}

TEST_F(RegistrarHoraTrabajoTest, TheEndOfADayPassesMidnight) {
  station_.Disk.Put(kFdr, PlaceOf(Entry("20/11/2026  22:45", 10, "00:00", 22, 45)));
  form_.TiempoEjecucion = 75;
  form_.RegistrarHoraTrabajo("0");
  EXPECT_EQ(At1(), Entry("20/11/2026  22:45", 10, "01:15", 0, 0));
}

TEST_F(RegistrarHoraTrabajoTest, ANewDayBringsAllRecordsDown) {
  const std::string before = FullLog();
  station_.Disk.Put(kFdr, before);
  form_.TiempoEjecucion = 600;
  station_.Clock.Set(At(0, 0, 0, 21));
  form_.RegistrarHoraTrabajo("0");
  EXPECT_EQ(At1(), Entry("21/11/2026  00:00", 10, "00:00", 0, 0));
  EXPECT_EQ(Records(Log(), 2, 1000), Records(before, 1, 999));
  EXPECT_EQ(form_.TiempoEjecucion, 0);
}

TEST_F(RegistrarHoraTrabajoTest, AClockSetBackOverMidnightBeginsADayToo) {
  const std::string before = FullLog();
  station_.Disk.Put(kFdr, before);
  station_.Clock.Set(At(23, 50, 0, 19));
  form_.TiempoEjecucion = 3;
  form_.RegistrarHoraTrabajo("24");
  form_.RegistrarHoraTrabajo("0");
  EXPECT_EQ(At1(), Entry("19/11/2026  23:50", 10, "00:00", 23, 50));
  EXPECT_EQ(EntryOf(Log(), 2), Entry("20/11/2026  08:00", 10, "00:03", 8, 3));
  EXPECT_EQ(EntryOf(Log(), 3), Entry("19/11/2026  23:50", 124));
  EXPECT_EQ(Records(Log(), 4, 1000), Records(before, 2, 998));
}

// ---- Events
// ---------------------------------------------------------------------------------------------

TEST_F(RegistrarHoraTrabajoTest, AnEventGoesBelowTheDayAndTheOldestIsLost) {
  const std::string before = FullLog();
  station_.Disk.Put(kFdr, before);
  form_.TiempoEjecucion = 361;
  form_.RegistrarHoraTrabajo("10");
  EXPECT_EQ(At1(), Entry("20/11/2026  08:00", 10, "06:01", 14, 1));
  EXPECT_EQ(EntryOf(Log(), 2), Entry("20/11/2026  14:05", 110));
  EXPECT_EQ(Records(Log(), 3, 1000), Records(before, 2, 999));
}

TEST_F(RegistrarHoraTrabajoTest, AnEventBeforeTheFirstTickOfADayGoesBelowTheOldDay) {
  station_.Disk.Put(kFdr, FullLog());
  station_.Clock.Set(At(0, 0, 5, 21));
  form_.TiempoEjecucion = 960;
  form_.RegistrarHoraTrabajo("15");
  EXPECT_EQ(At1(), Entry("20/11/2026  08:00", 10, "16:00", 0, 0));
  EXPECT_EQ(EntryOf(Log(), 2), Entry("21/11/2026  00:00", 115));
}

// ---- What the disk may do
// ---------------------------------------------------------------------------------------------

TEST_F(RegistrarHoraTrabajoTest, NothingWaitsForTheDisk) {
  const int before = station_.Disk.Syncs();
  form_.RegistrarHoraTrabajo("0");
  form_.RegistrarHoraTrabajo("25");
  form_.RegistrarHoraTrabajo("0");
  EXPECT_EQ(station_.Disk.Syncs(), before);
  EXPECT_EQ(EntryOf(Log(), 2).CodigoFuncion, Money::FromUnits(125));
}

TEST_F(RegistrarHoraTrabajoTest, AReadOnlyFileIsWrittenAllTheSame) {
  station_.Disk.Put(kFdr, FullLog());
  station_.Disk.SetReadOnly(kFdr);
  form_.RegistrarHoraTrabajo("10");
  EXPECT_EQ(EntryOf(Log(), 2), Entry("20/11/2026  14:05", 110));
}

TEST_F(RegistrarHoraTrabajoTest, WhatTheDiskRefusesCostsTheEntryAlone) {
  const std::string before = FullLog();
  station_.Disk.Put(kFdr, before);
  for (const char* code : {"0", "10"}) {
    station_.Faulty.Set() = {.failAllWrites = true};
    form_.RegistrarHoraTrabajo(code);
    station_.Faulty.Set() = {.openReadOnly = true};
    form_.RegistrarHoraTrabajo(code);
    station_.Faulty.Set() = {.failRead = 1};
    form_.RegistrarHoraTrabajo(code);
    EXPECT_EQ(Log(), before) << code;
    station_.Faulty.Repair();
  }
  EXPECT_TRUE(station_.Boxes.empty());
  form_.RegistrarHoraTrabajo("10");
  EXPECT_EQ(EntryOf(Log(), 2), Entry("20/11/2026  14:05", 110));
}

TEST_F(RegistrarHoraTrabajoTest, AFullDiskMakesNoHalfFile) {
  station_.Faulty.Set() = {.failAllWrites = true};
  form_.RegistrarHoraTrabajo("25");
  EXPECT_EQ(Log(), "(missing)");
}

TEST_F(RegistrarHoraTrabajoTest, ACutFileIsMadeWholeByTheNextEntry) {
  const std::string before = FullLog();
  for (std::size_t length = 1; length < before.size(); length += 173) {
    for (const char* code : {"0", "10"}) {
      station_.Disk.Put(kFdr, before.substr(0, length));
      form_.TiempoEjecucion = 0;
      form_.RegistrarHoraTrabajo(code);
      ASSERT_EQ(Log().size(), 46'000u) << length;
      const std::size_t whole = length / 46, moved = code == std::string("0") ? 0 : 1;
      if (whole > 1) {
        ASSERT_EQ(Records(Log(), 2 + moved, whole + moved), Records(before, 2, whole)) << length;
      }
      ASSERT_EQ(EntryOf(Log(), 1000), BlankEntry("20/11/2026  14:05")) << length;
    }
  }
}

TEST_F(RegistrarHoraTrabajoTest, AScrambledFileStaysOneOfAThousandRecords) {
  std::string bytes(46'000, '\0');
  for (std::size_t i = 0; i < bytes.size(); ++i)
    bytes[i] = static_cast<char>(i * 31 % 257);
  station_.Disk.Put(kFdr, bytes);
  form_.RegistrarHoraTrabajo("10");
  EXPECT_EQ(Log().size(), 46'000u);
  EXPECT_EQ(EntryOf(Log(), 2), Entry("20/11/2026  14:05", 110));
  EXPECT_EQ(Records(Log(), 4, 1000).substr(0, 20), Records(bytes, 3, 3).substr(0, 20));
  form_.RegistrarHoraTrabajo("0");
  EXPECT_EQ(At1(), Entry("20/11/2026  14:05", 10, "00:00", 14, 5));
}

TEST_F(RegistrarHoraTrabajoTest, ATimeThatIsNoneCountsAsMidnight) {
  station_.Disk.Put(kFdr, test::LogOf({Entry("20/11/2026  xx:yy", 10, "99:99", 3, 3)}));
  form_.RegistrarHoraTrabajo("0");
  EXPECT_EQ(form_.TiempoEjecucion, 0);
  EXPECT_EQ(At1(), Entry("20/11/2026  xx:yy", 10, "00:00", 0, 0));
}

// ---- Who writes
// ---------------------------------------------------------------------------------------------

class LogOfADayTest : public testing::Test {
 protected:
  std::string Log() const { return station_.Disk.Get(kFdr); }
  std::vector<std::int64_t> Codes(std::size_t count) const {
    std::vector<std::int64_t> codes;
    for (std::size_t number = 1; number <= count; ++number)
      codes.push_back(EntryOf(Log(), number).CodigoFuncion.Units());
    return codes;
  }
  MemoryStation station_{At(23, 58, 57)};
};

TEST_F(LogOfADayTest, TheStartLogsTheTimeThenTheProgram) {
  station_.Start();
  EXPECT_EQ(EntryOf(Log(), 1), Entry("20/11/2026  23:58", 10, "00:00", 23, 58));
  EXPECT_EQ(EntryOf(Log(), 2), Entry("20/11/2026  23:58", 125));
  EXPECT_EQ(EntryOf(Log(), 3), BlankEntry("20/11/2026  23:58"));
}

TEST_F(LogOfADayTest, EachMinuteCountsAndMidnightBeginsADay) {
  station_.StartConnected();  // 23:59:00 by now
  EXPECT_EQ(EntryOf(Log(), 1), Entry("20/11/2026  23:58", 10, "00:01", 23, 59));
  station_.Pass(59'500);
  EXPECT_EQ(EntryOf(Log(), 1).Tiempo, "00:01"_w);
  station_.Pass(500);
  EXPECT_EQ(EntryOf(Log(), 1), Entry("21/11/2026  00:00", 10, "00:00", 0, 0));
  EXPECT_EQ(EntryOf(Log(), 2), Entry("20/11/2026  23:58", 10, "00:01", 23, 59));
  EXPECT_EQ(EntryOf(Log(), 3), Entry("20/11/2026  23:58", 125));
  station_.Pass(60'000);
  EXPECT_EQ(EntryOf(Log(), 1), Entry("21/11/2026  00:00", 10, "00:01", 0, 1));
  EXPECT_EQ(Codes(4), (std::vector<std::int64_t>{10, 10, 125, 10}));
}

TEST_F(LogOfADayTest, TwoStartsOnOneDayKeepOneRunningTime) {
  MemoryStation first(At(9, 0));
  first.StartConnected();
  first.Pass(7 * 60'000);
  first.Form.CerrarSinPreguntar();
  const std::string log = first.Disk.Get(kFdr);
  ASSERT_EQ(EntryOf(log, 1), Entry("20/11/2026  09:00", 10, "00:07", 9, 7));

  MemoryStation second(At(15, 30, 10));
  second.Disk.Put(kFdr, log);
  second.StartConnected();
  EXPECT_EQ(second.Form.TiempoEjecucion, 7);
  second.Pass(60'000);
  const std::string now = second.Disk.Get(kFdr);
  EXPECT_EQ(EntryOf(now, 1), Entry("20/11/2026  09:00", 10, "00:08", 9, 8));
  EXPECT_EQ(EntryOf(now, 2), Entry("20/11/2026  15:30", 125));
  EXPECT_EQ(EntryOf(now, 3), Entry("20/11/2026  09:07", 126));
  EXPECT_EQ(EntryOf(now, 4), Entry("20/11/2026  09:00", 125));
  EXPECT_EQ(EntryOf(now, 5), BlankEntry("20/11/2026  09:00"));
}

TEST_F(LogOfADayTest, AJumpOfMoreThanTwentySecondsIsLoggedOnce) {
  station_.StartConnected();
  const Moment before = station_.Clock.Now();
  station_.Clock.Set(before.Plus(19'500));
  station_.Pass(500);
  EXPECT_EQ(Codes(3), (std::vector<std::int64_t>{10, 125, 10}));
  station_.Clock.Set(station_.Clock.Now().Plus(-20'501));
  station_.Pass(500);
  EXPECT_EQ(Codes(4), (std::vector<std::int64_t>{10, 124, 125, 10}));
  station_.Pass(10'000);
  EXPECT_EQ(Codes(4), (std::vector<std::int64_t>{10, 124, 125, 10}));
}

TEST_F(LogOfADayTest, AJumpOfAMinuteForwardIsLoggedBeforeTheMinute) {
  station_.StartConnected();
  station_.Clock.Set(At(0, 30, 0, 21));
  station_.Pass(500);
  // The jump still belongs to the old day; the new one goes on top of both.
  EXPECT_EQ(Codes(4), (std::vector<std::int64_t>{10, 10, 124, 125}));
  EXPECT_EQ(EntryOf(Log(), 1), Entry("21/11/2026  00:30", 10, "00:00", 0, 30));
  EXPECT_EQ(EntryOf(Log(), 3), Entry("21/11/2026  00:30", 124));
}

TEST_F(LogOfADayTest, TheEndOfTheProgramIsTheLastEntry) {
  station_.StartConnected();
  station_.Answers = {Answer::kYes};
  station_.Form.CerrarVentana();
  EXPECT_EQ(Codes(3), (std::vector<std::int64_t>{10, 126, 125}));
}

TEST_F(LogOfADayTest, AStationThatStopsIsLoggedToo) {
  station_.StartConnected();
  station_.Answers = {Answer::kOk};
  station_.Form.Detener("why"_w);
  EXPECT_EQ(Codes(3), (std::vector<std::int64_t>{10, 126, 125}));
}

TEST_F(LogOfADayTest, OneThatNeverCameUpLogsNothing) {
  station_.UnderBox = [&] { station_.Form.CerrarSinPreguntar(); };
  station_.Form.Form_Load();  // the welcome is up
  EXPECT_EQ(Log(), "(missing)");
}

}  // namespace
}  // namespace vintoral
