// The panel of the keypad: rows, tabs and passwords, and the lock that is open for this run.
#include "unit/safety/form7/Form7Fixture.h"

namespace vintoral {
namespace {

using test::Form7Test;
using test::kExt;
using test::Locking;
using test::LockRecord;
using test::MemoryStation;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr Color kActive = 0xC0C0FF, kInactive = 0xC0FFC0;
const std::string kNone(18, '0');

// ---- The panel
// ---------------------------------------------------------------------------------------------

TEST_F(Form7Test, RowsWithoutAPasswordLeadToANewOneFirst) {
  Start();
  station_.Answers = {Answer::kOk};
  Open(
      {[&] {
         Tick(0);
         Tick(16);
         Confirm();
       },
       [&] {
         EXPECT_THAT(Titles(), ElementsAre("Vintoral - Nueva Contraseña"_w));
         EXPECT_EQ(
             station_.Boxes[0].text,
             "Por favor ingrese la nueva contraseña de 5 dígitos seguido del botón de confirmación derecho.\r\nPresione la tecla ESC para cancelar la operación."_w);
         EXPECT_EQ(station_.Boxes[0].icon, Icon::kInformation);
         EXPECT_EQ(form_.FuncionesBloqueadas, "10000000000000001"_w);
         EXPECT_EQ(Stored(), LockRecord("", kNone));
         EXPECT_FALSE(Locked());
         EXPECT_EQ(Dialog().LblFuncion[0].BackColor, kInactive);
         EXPECT_EQ(Dialog().LblFuncion[1].BackColor, kActive);
         EXPECT_TRUE(DigitsOn());
         station_.Answers = {Answer::kOk};
         station_.Type("20406");
         EXPECT_THAT(Marks(), ElementsAre(true, true, true, true, true, true));
         EXPECT_EQ(Dialog().LblSeleccion[0].Caption, "2"_w);
         EXPECT_EQ(Dialog().LblSeleccion[4].Caption, "6"_w);
         Confirm();
       },
       [&] {
         EXPECT_EQ(Titles().back(), "Vintoral - Nueva Contraseña"_w);
         EXPECT_EQ(station_.Boxes.back().text, "La contraseña ha sido cambiada."_w);
         EXPECT_EQ(station_.Boxes.back().icon, Icon::kInformation);
         EXPECT_EQ(Stored(), LockRecord("20406", "10000000000000001"));
         EXPECT_FALSE(Locked());  // saved behind the tab of the password
         EXPECT_EQ(Dialog().LblFuncion[0].BackColor, kActive);
         EXPECT_THAT(Ticked(), ElementsAre(0u, 16u));
         EXPECT_FALSE(DigitsOn());
         station_.Answers = {Answer::kOk};
         Confirm();
       }});
  EXPECT_EQ(Titles().back(), "Vintoral - ADVERTENCIA"_w);
  EXPECT_EQ(station_.Boxes.back().text,
            "Las funciones seleccionadas han sido bloqueadas con su contraseña actual."_w);
  EXPECT_EQ(station_.Boxes.back().icon, Icon::kExclamation);
  EXPECT_TRUE(Locked());
  EXPECT_EQ(form_.Form7, nullptr);
  EXPECT_EQ(Stored(), LockRecord("20406", "10000000000000001"));
}

TEST_F(Form7Test, FiveDigitsThatStandThereAlreadyAreTheNewPassword) {
  Start();
  station_.Answers = {Answer::kOk, Answer::kOk, Answer::kOk, Answer::kOk};
  Open({[&] {
          station_.Hands.Click(Dialog().LblFuncion[1]);
          station_.Type("11223");
          Tick(0);  // back at the tab that locks
          EXPECT_EQ(Dialog().LblFuncion[0].BackColor, kActive);
          Confirm();
        },
        [&] { Key(keys::kEscape); }});
  EXPECT_THAT(Titles(), ElementsAre("Vintoral - Nueva Contraseña"_w, "Vintoral - Nueva Contraseña"_w,
                                    "Vintoral - Nueva Contraseña"_w, "Vintoral - ADVERTENCIA"_w));
  EXPECT_EQ(form_.ContraseñaActual, "11223"_w);
}

TEST_F(Form7Test, FourDigitsChangeNothingAndSayNothing) {
  Start();
  station_.Answers = {Answer::kOk};
  Open({[&] {
          station_.Hands.Click(Dialog().LblFuncion[1]);
          station_.Type("1122");
          station_.Boxes.clear();
          Confirm();
          EXPECT_THAT(Marks(), ElementsAre(true, true, true, true, false, true));
          EXPECT_EQ(Dialog().LblFuncion[1].BackColor, kActive);
        },
        [&] { Key(keys::kEscape); }, [&] { Key(keys::kEscape); }});
  EXPECT_THAT(station_.Boxes, IsEmpty());
  EXPECT_EQ(form_.ContraseñaActual, ""_w);
  EXPECT_EQ(Stored(), LockRecord("", kNone));
}

TEST_F(Form7Test, NoRowsSaveAndStayOpenAndThePasswordStays) {
  StartOpened(8);
  Open({[&] {
    Tick(7);
    EXPECT_THAT(Ticked(), IsEmpty());
    Confirm();
  }});
  EXPECT_THAT(station_.Boxes, IsEmpty());
  EXPECT_FALSE(Locked());
  EXPECT_EQ(form_.Form7, nullptr);
  EXPECT_EQ(Stored(), LockRecord("12345", "00000000000000000"));
  EXPECT_EQ(form_.ContraseñaActual, "12345"_w);
}

TEST_F(Form7Test, ASelectionOfSeventeenDigitsIsOneOfEighteenAfterTheNextStart) {
  StartOpened(8);
  station_.Answers = {Answer::kOk};
  Open({[&] { Confirm(); }});
  EXPECT_EQ(form_.FuncionesBloqueadas, "00000001000000000"_w);
  MemoryStation next;
  next.Disk.Put(kExt, station_.Disk.Get(kExt));
  next.StartConnected();
  EXPECT_EQ(next.Form.FuncionesBloqueadas, "000000010000000000"_w);
  EXPECT_TRUE(next.Form.ImgIndicador[indicador::kBloqueo].Visible);
}

TEST_F(Form7Test, TouchingARowLeadsBackToTheTabThatLocks) {
  Start();
  station_.Answers = {Answer::kOk};
  Open({[&] {
          station_.Hands.Click(Dialog().LblFuncion[1]);
          ASSERT_EQ(Dialog().LblFuncion[0].BackColor, kInactive);
          Tick(5);
          EXPECT_EQ(Dialog().LblFuncion[0].BackColor, kActive);
          EXPECT_EQ(Dialog().LblFuncion[1].BackColor, kInactive);
        },
        [&] { Key(keys::kEscape); }});
}

// ---- Open for this run
// ---------------------------------------------------------------------------------------------

class OpenForThisRunTest : public Form7Test {
 protected:
  void SetUp() override {
    StartOpened(8);
    ASSERT_FALSE(Locked());
    ASSERT_NE(form_.Form7, nullptr);
  }
};

TEST_F(OpenForThisRunTest, TheKeypadComesBackAsItWas) {
  const Form7* const before = form_.Form7;
  station_.Answers = {Answer::kOk};
  Open({[&] {
    EXPECT_EQ(form_.Form7, before);
    EXPECT_TRUE(Dialog().LstBloqueo.Visible);
    EXPECT_THAT(Ticked(), ElementsAre(7u));
    EXPECT_EQ(LastEvent(), 112);
    Key(keys::kEnter);
  }});
  EXPECT_TRUE(Locked());
  EXPECT_EQ(form_.Form7, nullptr);
}

TEST_F(OpenForThisRunTest, EscLocksAgain) {
  station_.Answers = {Answer::kOk};
  Open({[&] { Key(keys::kEscape); }});
  EXPECT_THAT(Titles(), ElementsAre("Vintoral - ADVERTENCIA"_w));
  EXPECT_TRUE(Locked());
  EXPECT_EQ(form_.Form7, nullptr);
}

TEST_F(OpenForThisRunTest, TheCloseBoxLocksAgain) {
  station_.Answers = {Answer::kOk};
  Open({[&] { station_.Hands.CloseBox(Dialog()); }});
  EXPECT_THAT(Titles(), ElementsAre("Vintoral - ADVERTENCIA"_w));
  EXPECT_TRUE(Locked());
  EXPECT_EQ(form_.Form7, nullptr);
}

TEST_F(OpenForThisRunTest, SoItDoesFromTheTabOfThePassword) {
  station_.Answers = {Answer::kOk, Answer::kOk};
  Open({[&] {
    station_.Hands.Click(Dialog().LblFuncion[1]);
    station_.Type("777");
    station_.Hands.CloseBox(Dialog());
  }});
  EXPECT_THAT(Titles(), ElementsAre("Vintoral - Nueva Contraseña"_w, "Vintoral - ADVERTENCIA"_w));
  EXPECT_TRUE(Locked());
  EXPECT_EQ(form_.ContraseñaActual, "12345"_w);
}

TEST_F(OpenForThisRunTest, ClosingAppliesTheRowsAsTheyStand) {
  Open({[&] {
    Tick(7);
    station_.Hands.CloseBox(Dialog());
  }});
  EXPECT_THAT(station_.Boxes, IsEmpty());
  EXPECT_FALSE(Locked());
  EXPECT_EQ(Stored(), LockRecord("12345", "00000000000000000"));
}

TEST_F(OpenForThisRunTest, AnotherPasswordAndOneMoreConfirmation) {
  station_.Answers = {Answer::kOk, Answer::kOk, Answer::kOk};
  Open({[&] {
          station_.Hands.Click(Dialog().LblFuncion[1]);
          station_.Type("00000");
          Confirm();
        },
        [&] {
          EXPECT_EQ(Stored(), LockRecord("00000", Locking(8)));
          EXPECT_FALSE(Locked());
          Confirm();
        }});
  EXPECT_TRUE(Locked());
  EXPECT_EQ(Stored(), LockRecord("00000", "00000001000000000"));
}

TEST_F(OpenForThisRunTest, TheEndOfTheProgramAsksNothingAndTheNextStartIsLocked) {
  station_.Form.CerrarSinPreguntar();
  EXPECT_THAT(station_.Boxes, IsEmpty());
  EXPECT_EQ(form_.Form7, nullptr);
  MemoryStation next;
  next.Disk.Put(kExt, station_.Disk.Get(kExt));
  next.StartConnected();
  EXPECT_TRUE(next.Form.ImgIndicador[indicador::kBloqueo].Visible);
}

TEST_F(OpenForThisRunTest, AFileThatCannotBeOpenedLeavesThemOpen) {
  station_.Answers = {Answer::kOk};
  station_.Faulty.Set().openReadOnly = true;
  Open({[&] { Key(keys::kEscape); }});
  EXPECT_FALSE(Locked());
  EXPECT_EQ(form_.Form7, nullptr);
}

}  // namespace
}  // namespace vintoral
