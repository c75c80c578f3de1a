// Retiring a ficha: the money has to be in the history, or the ficha still inside.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "records/ArchivosNuevos.h"
#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::At;
using test::MemoryStation;
using testing::Contains;
using testing::Not;

constexpr const char* kAct = "Multimedia\\Vintoral.ACT";
constexpr const char* kHst = "Multimedia\\Vintoral.HST";
const String kCancelled = "Sonidos\\Vintoral-7.wav"_w;

/// Slot 7 came in at 14:00 (AUTOMOVIL, 100 a minute) and is on display at 14:37.
class RetirarFichaTest : public testing::Test {
 protected:
  RetirarFichaTest() {
    station_.Disk.Put(kAct, ActNuevo());
    station_.StartConnected();
    station_.Enter("7", "abc123");
    station_.Pass(37 * 60'000);
    Show();
  }
  void Show() {
    station_.TypeAndEnter("7");
    station_.Boxes.clear();
    station_.Events.Take();
  }
  void Retire(Answer answer = Answer::kYes) {
    station_.Answers = {answer};
    station_.Hands.Key(keys::kDelete, 0);
  }
  bool Inside() const { return station_.Slot(7).EnUso; }
  bool InHistory() const { return station_.HistoryRows() == 2; }
  bool Idle() const { return !form_.FichaEnPantalla() && form_.TxtCampo[0].Text().Empty(); }

  MemoryStation station_;
  Form1& form_ = station_.Form;
};

TEST_F(RetirarFichaTest, TheDisplayHasStayAndValue) {
  EXPECT_EQ(form_.LblFechaEnt.Caption, "14:00  (20/11/2026)"_w);
  EXPECT_EQ(form_.LblFechaSal.Caption, "14:37  (20/11/2026)"_w);
  EXPECT_EQ(form_.LblInfo[1].Caption, "37M "_w);
  EXPECT_EQ(form_.LblValor.Caption, "$ 3700.00"_w);
}

TEST_F(RetirarFichaTest, AsksInTheStationsWords) {
  Retire(Answer::kNo);
  ASSERT_EQ(station_.Boxes.size(), 1u);
  EXPECT_EQ(station_.Boxes[0].title, "Vintoral - Confirmar Ficha"_w);
  EXPECT_EQ(station_.Boxes[0].text, "¿Desea realmente retirar la ficha actual?"_w);
  EXPECT_EQ(station_.Boxes[0].icon, Icon::kExclamation);
}

TEST_F(RetirarFichaTest, YesMovesTheFichaToTheHistory) {
  Retire();
  const RegistroFicha slot = station_.Slot(7);
  EXPECT_FALSE(slot.EnUso);
  EXPECT_EQ(slot.MarcaSalida.Trimmed(), "14:37  (20/11/2026)"_w);
  EXPECT_EQ(slot.PorteriaSalida.Trimmed(), "01"_w);
  EXPECT_EQ(slot.Placa.Trimmed(), "ABC123"_w);
  ASSERT_TRUE(InHistory());
  const RegistroFicha row = station_.History(2);
  EXPECT_TRUE(row.EnUso);
  EXPECT_EQ(row.Posicion, 2);
  EXPECT_EQ(row.NumeroFicha.Trimmed(), "0007"_w);
  EXPECT_EQ(row.Placa.Trimmed(), "ABC123"_w);
  EXPECT_EQ(row.MarcaEntrada.Trimmed(), "14:00  (20/11/2026)"_w);
  EXPECT_EQ(row.MarcaSalida.Trimmed(), "14:37  (20/11/2026)"_w);
  EXPECT_EQ(row.ValorCobrado, Money::FromUnits(3700));
  EXPECT_TRUE(Idle());
  EXPECT_THAT(station_.Heard(), Contains("Sonidos\\Vintoral-4.wav"_w));
  EXPECT_TRUE(form_.TmrHoraFecha.Enabled);
}

TEST_F(RetirarFichaTest, TheSlotSignsWithItsOwnNumberWhateverStoodThere) {
  RegistroFicha odd = station_.Slot(7);
  odd.NumeroFicha = "0099";
  odd.Posicion = 99;
  station_.PutSlot(7, odd);
  Retire();
  EXPECT_EQ(station_.Slot(7).NumeroFicha.Trimmed(), "0007"_w);
  EXPECT_EQ(station_.Slot(7).Posicion, 7);
  EXPECT_EQ(station_.History(2).NumeroFicha.Trimmed(), "0007"_w);
}

TEST_F(RetirarFichaTest, TheClockBeginsItsHalfSecondAfresh) {
  station_.Pass(300);
  ASSERT_EQ(form_.TmrHoraFecha.Due(), station_.Clock.Ticks() + 200);
  Retire();
  EXPECT_EQ(form_.TmrHoraFecha.Due(), station_.Clock.Ticks() + 500);
}

TEST_F(RetirarFichaTest, NoTouchesNoFile) {
  const std::string act = station_.Disk.Get(kAct);
  Retire(Answer::kNo);
  EXPECT_EQ(station_.Disk.Get(kAct), act);
  EXPECT_FALSE(InHistory());
  EXPECT_TRUE(Idle());
}

TEST_F(RetirarFichaTest, AnAnswerInTheNextMinuteCounts) {
  station_.UnderBox = [this] { station_.Clock.Set(At(14, 38, 59)); };
  Retire();
  EXPECT_TRUE(InHistory());
  EXPECT_EQ(station_.History(2).MarcaSalida.Trimmed(), "14:37  (20/11/2026)"_w);
}

TEST_F(RetirarFichaTest, AnAnswerTwoMinutesOnCancels) {
  station_.UnderBox = [this] { station_.Clock.Set(At(14, 39, 0)); };
  Retire();
  EXPECT_FALSE(InHistory());
  EXPECT_TRUE(Inside());
  EXPECT_TRUE(Idle());
  EXPECT_THAT(station_.Heard(), Contains(kCancelled));
}

TEST_F(RetirarFichaTest, AClockSetBackUnderTheQuestionCancels) {
  station_.UnderBox = [this] { station_.Clock.Set(At(14, 35, 59)); };
  Retire();
  EXPECT_FALSE(InHistory());
  EXPECT_TRUE(Inside());
  EXPECT_THAT(station_.Heard(), Contains(kCancelled));
}

TEST_F(RetirarFichaTest, AClockSetBackOneMinuteUnderTheQuestionCounts) {
  station_.UnderBox = [this] { station_.Clock.Set(At(14, 36, 0)); };
  Retire();
  EXPECT_TRUE(InHistory());
}

TEST_F(RetirarFichaTest, AClockBeforeTheEntryChargesAStayOfNothing) {
  station_.Clock.Set(At(13, 0));
  Retire();
  ASSERT_TRUE(InHistory());
  EXPECT_FALSE(Inside());
  EXPECT_EQ(station_.History(2).ValorCobrado, Money());  // 0 minutes at 100
}

TEST_F(RetirarFichaTest, AFichaForgottenUnderTheQuestionGoesBackToIdleAndStaysInside) {
  station_.UnderBox = [this] {
    station_.Pass(180'000);
    ASSERT_TRUE(Idle());
    ASSERT_THAT(station_.Heard(), Contains(kCancelled));
  };
  Retire();
  EXPECT_TRUE(Inside());
  EXPECT_FALSE(InHistory());
  EXPECT_TRUE(Idle());
  // Once more, for the Yes that did nothing.
  EXPECT_THAT(station_.Heard(), Contains(kCancelled));
}

TEST_F(RetirarFichaTest, TheValueChargedIsThatOfTheSecondLook) {
  station_.Pass(60'000);
  ASSERT_EQ(form_.LblValor.Caption, "$ 3700.00"_w);  // the display stands frozen
  Retire();
  EXPECT_EQ(station_.History(2).ValorCobrado, Money::FromUnits(3800));
  EXPECT_EQ(station_.History(2).MarcaSalida.Trimmed(), "14:38  (20/11/2026)"_w);
}

TEST_F(RetirarFichaTest, AFichaThatAnotherGateRetiredGetsASecondRow) {
  std::string act = station_.Disk.Get(kAct);
  act[6 * RegistroFicha::kSize] = act[6 * RegistroFicha::kSize + 1] = 0;
  station_.UnderBox = [&] { station_.Disk.Put(kAct, act); };
  Retire();
  EXPECT_TRUE(InHistory());
  EXPECT_EQ(station_.Disk.Get(kAct), act);
}

TEST_F(RetirarFichaTest, AHistoryThatGivesNoRoomLeavesTheFichaInsideAndOnDisplay) {
  station_.UnderBox = [this] { station_.Faulty.Set().failReserve = true; };
  Retire();
  EXPECT_TRUE(Inside());
  EXPECT_FALSE(InHistory());
  EXPECT_TRUE(form_.FichaEnPantalla());
  EXPECT_TRUE(form_.TmrHoraFecha.Enabled);
  EXPECT_EQ(form_.TmrConexion.Interval(), 100);
  EXPECT_EQ(station_.Beeps(), 1);
  station_.Faulty.Repair();
  Retire();
  EXPECT_FALSE(Inside());
  EXPECT_TRUE(InHistory());
  EXPECT_EQ(station_.Beeps(), 0);
}

TEST_F(RetirarFichaTest, AHistoryThatCantBeOpenedLeavesTheFichaInside) {
  station_.UnderBox = [this] { station_.Disk.SetReadOnly(kHst); };
  Retire();
  EXPECT_TRUE(Inside());
  EXPECT_FALSE(InHistory());
}

TEST_F(RetirarFichaTest, AFullDiskLeavesTheFichaInside) {
  station_.UnderBox = [this] { station_.Faulty.Set().failAllWrites = true; };
  Retire();
  EXPECT_TRUE(Inside());
  EXPECT_FALSE(InHistory());
}

TEST_F(RetirarFichaTest, AReadOnlyFolderLeavesTheFichaInside) {
  station_.UnderBox = [this] { station_.Faulty.Set().openReadOnly = true; };
  Retire();
  EXPECT_TRUE(Inside());
  EXPECT_FALSE(InHistory());
}

TEST_F(RetirarFichaTest, AnUnreadableSlotLeavesTheFichaInside) {
  station_.UnderBox = [this] { station_.Faulty.Set().failRead = 2; };  // behind the look whose it is
  Retire();
  EXPECT_TRUE(Inside());
  EXPECT_FALSE(InHistory());
}

TEST_F(RetirarFichaTest, ASlotThatCantBeFreedStillGetsItsRow) {
  station_.UnderBox = [this] { station_.Faulty.Set().failWrite = 1; };
  Retire();
  EXPECT_TRUE(Inside());
  EXPECT_TRUE(InHistory());
}

TEST_F(RetirarFichaTest, AFailedSyncKeepsTheRow) {
  station_.UnderBox = [this] { station_.Faulty.Set().failSync = true; };
  Retire();
  EXPECT_TRUE(InHistory());
}

TEST_F(RetirarFichaTest, ARowThatCantBeWrittenPutsTheFichaBackInsideAndOnDisplay) {
  const std::string act = station_.Disk.Get(kAct);
  for (const std::size_t torn : {0u, 1u, 187u}) {
    station_.UnderBox = [&] {
      station_.Faulty.Set().failWrite = 2;  // the slot, then the row
      station_.Faulty.Set().tornBytes = torn;
    };
    Retire();
    EXPECT_EQ(station_.Disk.Get(kAct), act) << torn;
    EXPECT_FALSE(InHistory()) << torn;
    EXPECT_TRUE(form_.FichaEnPantalla()) << torn;
    EXPECT_EQ(station_.Beeps(), 1) << torn;
    station_.Faulty.Repair();
  }
  Retire();
  EXPECT_FALSE(Inside());
  ASSERT_TRUE(InHistory());
  EXPECT_EQ(station_.History(2).ValorCobrado, Money::FromUnits(3700));
}

TEST_F(RetirarFichaTest, ARegisterThatTellsNoLengthLosesNothing) {
  station_.UnderBox = [this] { station_.Faulty.Set().failLength = true; };
  Retire();
  EXPECT_TRUE(Inside() || InHistory());
}

TEST_F(RetirarFichaTest, TheSlotIsFreedOnlyAfterTheRowHasItsRoom) {
  // The folder goes away after ever more operations under the question, until the slot is freed.
  bool freed = false;
  const std::string act = station_.Disk.Get(kAct);
  for (int step = 0; !freed; ++step) {
    ASSERT_LT(step, 50);
    station_.UnderBox = [&] { station_.Faulty.Set().goneAfter = step; };
    Retire();
    freed = !Inside();
    EXPECT_EQ(station_.Disk.Get(kAct).size(), act.size());
    EXPECT_TRUE(freed || station_.Disk.Get(kAct) == act) << step;
    station_.Faulty.Repair();
    station_.Hands.Key(keys::kEscape, 0);
    station_.Pass(20'000);
    if (!freed) Show();
  }
}

TEST_F(RetirarFichaTest, AFolderThatGoesBehindTheFreedSlotLeavesTheFichaToTheNextYes) {
  int halfway = 0;
  for (int step = 0; !InHistory(); ++step) {
    ASSERT_LT(step, 60);
    station_.UnderBox = [&] { station_.Faulty.Set().goneAfter = step; };
    Retire();
    station_.UnderBox = {};
    station_.Faulty.Repair();
    if (Inside() || InHistory()) continue;
    ++halfway;
    EXPECT_TRUE(form_.FichaEnPantalla()) << step;
    station_.Pass(20'000);  // the link has noticed, and found the folder again
    Retire();
    EXPECT_EQ(station_.HistoryRows(), 2u) << step;
    EXPECT_EQ(station_.History(2).Placa.Trimmed(), "ABC123"_w) << step;
    EXPECT_EQ(station_.History(2).ValorCobrado, Money::FromUnits(3700)) << step;
    EXPECT_TRUE(Idle()) << step;
  }
  EXPECT_EQ(halfway, 1);  // after it the row stands
}

TEST_F(RetirarFichaTest, AFichaWhoseFolderGoesBehindTheFreedSlotIsInsideAgainWhenItIsBack) {
  int halfway = 0;
  for (int step = 0; !InHistory(); ++step) {
    ASSERT_LT(step, 60);
    const RegistroFicha before = station_.Slot(7);
    station_.UnderBox = [&] { station_.Faulty.Set().goneAfter = step; };
    Retire();
    station_.UnderBox = {};
    const bool free = !Inside() && !InHistory();
    if (free) station_.Hands.Key(keys::kEscape, 0);
    EXPECT_TRUE(!free || Idle()) << step;
    form_.DevolverPuestos();
    EXPECT_TRUE(!free || !Inside()) << step << ": nothing can be done while it is away";
    station_.Faulty.Repair();
    station_.Pass(20'000);
    if (InHistory()) continue;
    EXPECT_EQ(station_.Slot(7), before) << step;
    EXPECT_TRUE(form_.PuestosPendientes.empty()) << step;
    if (free) {
      ++halfway;
      station_.TypeAndEnter("7");
    }
  }
  EXPECT_GT(halfway, 1);
}

TEST_F(RetirarFichaTest, ASlotThatAnotherGateHasFilledMeanwhileIsNotGivenBack) {
  for (int step = 0; Inside(); ++step) {
    ASSERT_LT(step, 60);
    station_.UnderBox = [&] { station_.Faulty.Set().goneAfter = step; };
    Retire();
    station_.UnderBox = {};
    station_.Faulty.Repair();
  }
  ASSERT_EQ(form_.PuestosPendientes.size(), 1u);
  station_.Hands.Key(keys::kEscape, 0);
  RegistroFicha theirs = station_.Slot(7);
  theirs.EnUso = true;
  theirs.Placa = "THEIRS";
  station_.PutSlot(7, theirs);
  station_.Pass(20'000);
  EXPECT_EQ(station_.Slot(7), theirs);
  EXPECT_TRUE(form_.PuestosPendientes.empty());
}

TEST_F(RetirarFichaTest, AFichaThatAnotherGateHasLetOutMeanwhileStaysOut) {
  RegistroFicha out = station_.Slot(7);
  form_.PuestosPendientes.push_back({form_.CarpetaCompartida, 7, out, {}});
  out.EnUso = false;
  out.PorteriaSalida = "09";
  station_.PutSlot(7, out);
  form_.DevolverPuestos();
  EXPECT_EQ(station_.Slot(7), out);
  EXPECT_TRUE(form_.PuestosPendientes.empty());
}

TEST_F(RetirarFichaTest, ASlotOfAnotherFolderWaitsForThatOne) {
  const RegistroFicha before = station_.Slot(7);
  form_.PuestosPendientes.push_back({"elsewhere"_w, 7, before, {}});
  RegistroFicha free = before;
  free.EnUso = false;
  free.PorteriaSalida = form_.NumeroPorteria;
  station_.PutSlot(7, free);
  form_.DevolverPuestos();
  EXPECT_EQ(station_.Slot(7), free);
  form_.PuestosPendientes.front().carpeta = form_.CarpetaCompartida;
  form_.DevolverPuestos();
  EXPECT_EQ(station_.Slot(7), before);
}

/// A clock on which a minute turns over after so many looks.
class TurningClock final : public Clock {
 public:
  Moment Now() const override { return ++looks_ > turnAfter_ ? At(14, 38) : At(14, 37, 59); }
  std::int64_t Ticks() const override { return 0; }
  void TurnAfter(int looks) {
    turnAfter_ = looks;
    looks_ = 0;
  }

 private:
  mutable int looks_ = 0;
  int turnAfter_ = 0;
};

TEST(RetirarFicha, AMinuteThatTurnsBetweenTheTicksChargesWhatTheExitSays) {
  for (int looks = 0; looks < 12; ++looks) {
    MemoryStation station;
    station.StartConnected();
    station.Enter("7", "abc");
    TurningClock clock;
    Form1 form(Platform{clock, station.Screen, station.Sound, station.System, station.Faulty,
                        station.Pictures, station.Printer, station.Chance, station.Camera, station.Mail});
    Input hands(form.OpenForms);
    clock.TurnAfter(1000);
    station.Answers = {Answer::kOk};
    form.Form_Load();
    hands.Character('7');
    hands.Key(keys::kEnter, 0);
    clock.TurnAfter(looks);
    station.Answers = {Answer::kYes};
    hands.Key(keys::kDelete, 0);
    ASSERT_EQ(station.HistoryRows(), 2u) << looks;
    const RegistroFicha row = station.History(2);
    const bool turned = row.MarcaSalida.Trimmed() == "14:38  (20/11/2026)"_w;
    EXPECT_EQ(row.ValorCobrado, Money::FromUnits(turned ? 3800 : 3700)) << looks;
    EXPECT_TRUE(turned || row.MarcaSalida.Trimmed() == "14:37  (20/11/2026)"_w) << looks;
  }
}

// ---- The cash line
// --------------------------------------------------------------------------------------------

class CashTest : public RetirarFichaTest {
 protected:
  CashTest() { station_.Pass(500); }
  String ChangeFor(std::string_view cash) {
    station_.Hands.ReplaceText(form_.TxtEfectivo, String(cash));
    station_.Pass(500);
    return form_.LblCambio.Caption;
  }
};

TEST_F(CashTest, ItTakesTheKeyboardWithItsFirstCharacterSelected) {
  EXPECT_TRUE(form_.TxtEfectivo.Visible);
  EXPECT_EQ(form_.Focus(), &form_.TxtEfectivo);
  EXPECT_EQ(form_.TxtEfectivo.Text(), "0"_w);
  EXPECT_EQ(form_.TxtEfectivo.SelStart, 0u);
  EXPECT_EQ(form_.TxtEfectivo.SelLength, 1u);
  station_.Type("5");
  EXPECT_EQ(form_.TxtEfectivo.Text(), "5"_w);
}

TEST_F(CashTest, ItsFirstStepAloneSelects) {
  EXPECT_TRUE(form_.LblCambio.Visible);
  station_.Type("5");
  station_.Pass(500);
  station_.Type("7");
  EXPECT_EQ(form_.TxtEfectivo.Text(), "57"_w);
}

TEST_F(CashTest, EachStepTakesTheKeyboardBack) {
  form_.SetFocus(nullptr);
  station_.Pass(500);
  EXPECT_EQ(form_.Focus(), &form_.TxtEfectivo);
}

TEST_F(CashTest, TheChangeIsCashLessValue) {
  EXPECT_EQ(ChangeFor("5000"), "1300"_w);
  EXPECT_EQ(ChangeFor("3700"), "0"_w);
  EXPECT_EQ(ChangeFor("3699"), ""_w);
  EXPECT_EQ(ChangeFor(""), ""_w);
}

TEST_F(CashTest, CommaAndPointBothMarkDecimals) {
  EXPECT_EQ(ChangeFor("3702,5"), "2.5"_w);
  EXPECT_EQ(ChangeFor("3702.5"), "2.5"_w);
}

TEST_F(CashTest, KeysOtherThanNumbersBeep) {
  station_.Type("1x");
  EXPECT_EQ(form_.TxtEfectivo.Text(), "1"_w);
  EXPECT_EQ(station_.Beeps(), 1);
}

TEST_F(CashTest, TooLittleCashDoesNotStopTheRetiring) {
  ASSERT_EQ(ChangeFor("1"), ""_w);
  Retire();
  EXPECT_TRUE(InHistory());
}

TEST(RetirarFicha, ACategoryWithoutPriceHasNoCashLineAndChargesNothing) {
  MemoryStation station;
  station.StartConnected();
  station.TypeNew("7", "abc");
  station.Hands.ReplaceText(station.Form.CboTarifa[1], "VISITANTE"_w);
  station.Answers = {Answer::kYes};
  station.Hands.Key(keys::kInsert, 0);
  station.Pass(60 * 60'000);
  station.TypeAndEnter("7");
  station.Pass(1000);
  EXPECT_FALSE(station.Form.LblValor.Visible);
  EXPECT_FALSE(station.Form.TxtEfectivo.Visible);
  station.Answers = {Answer::kYes};
  station.Hands.Key(keys::kDelete, 0);
  ASSERT_EQ(station.HistoryRows(), 2u);
  EXPECT_EQ(station.History(2).ValorCobrado, Money());
}

}  // namespace
}  // namespace vintoral
