#include "safety/form7/Form7.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "station/form1/Sonidos.h"
#include "unit/safety/Bloqueos.h"
#include "unit/safety/Diarios.h"

namespace vintoral {
namespace {

using test::EntryOf;
using test::ExtWith;
using test::kExt;
using test::kFdr;
using test::kLockAt;
using test::Locking;
using test::LockRecord;
using test::MemoryStation;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr Color kActive = 0xC0C0FF, kInactive = 0xC0FFC0;
const std::string kNone(18, '0');

class Form7Test : public testing::Test {
 protected:
  /// A start with this lock on disk.
  void Start(const std::string& password = "", const std::string& functions = kNone) {
    station_.Disk.Put(kExt, ExtWith(password, functions));
    station_.StartConnected();
  }
  /// F9, and the steps in the dialog; the last one has to close it.
  void Open(std::deque<std::function<void()>> steps) {
    station_.InDialog = std::move(steps);
    station_.Hands.Key(keys::kF9, 0);
    EXPECT_THAT(station_.InDialog, IsEmpty());
  }
  Form7& Dialog() { return *form_.Form7; }
  void Key(int code) { station_.Hands.Key(code, 0); }
  void Confirm() { station_.Hands.Click(Dialog().ImgBoton[Form7::kConfirmar]); }
  void Tick(std::size_t row) {
    ASSERT_TRUE(station_.Hands.Select(Dialog().LstBloqueo, static_cast<int>(row)));
  }
  bool Locked() const { return form_.ImgIndicador[indicador::kBloqueo].Visible; }
  std::string Stored() const { return station_.Disk.Get(kExt).substr(kLockAt); }
  std::vector<String> Titles() const {
    std::vector<String> titles;
    for (const Box& box : station_.Boxes)
      titles.push_back(box.title);
    return titles;
  }
  std::vector<bool> Marks() {
    std::vector<bool> shown;
    for (const Label& mark : Dialog().LblSeleccion)
      shown.push_back(mark.Visible);
    return shown;
  }
  std::vector<std::size_t> Ticked() {
    std::vector<std::size_t> rows;
    for (std::size_t row = 0; row < Dialog().LstBloqueo.Checked.size(); ++row) {
      if (Dialog().LstBloqueo.Checked[row]) rows.push_back(row);
    }
    return rows;
  }
  std::int64_t LastEvent() const { return EntryOf(station_.Disk.Get(kFdr), 2).CodigoFuncion.Units(); }
  bool DigitsOn() {
    int on = 0;
    for (std::size_t digit = 0; digit < 10; ++digit)
      on += Dialog().ImgBoton[digit].Enabled ? 1 : 0;
    EXPECT_TRUE(on == 0 || on == 10);
    return on == 10;
  }

  MemoryStation station_;
  Form1& form_ = station_.Form;
};

// ---- How it comes up
// ---------------------------------------------------------------------------------------------

TEST_F(Form7Test, WithoutAPasswordItIsThePanel) {
  Start();
  Open({[&] {
          EXPECT_EQ(LastEvent(), 112);
          EXPECT_TRUE(Dialog().LstBloqueo.Visible);
          EXPECT_EQ(Dialog().LblFuncion[0].BackColor, kActive);
          EXPECT_EQ(Dialog().LblFuncion[1].BackColor, kInactive);
          EXPECT_FALSE(DigitsOn());
          EXPECT_THAT(Marks(), ElementsAre(false, false, false, false, false, true));
          EXPECT_THAT(Ticked(), IsEmpty());
        },
        [&] { Key(keys::kEscape); }});
  EXPECT_EQ(form_.Form7, nullptr);
  EXPECT_THAT(station_.Boxes, IsEmpty());
}

TEST_F(Form7Test, WithOneItIsThePrompt) {
  Start("12345");
  EXPECT_FALSE(Locked());
  Open({[&] {
          EXPECT_FALSE(Dialog().LstBloqueo.Visible);
          EXPECT_FALSE(Dialog().LblFuncion[0].Visible);
          EXPECT_TRUE(DigitsOn());
          EXPECT_THAT(Marks(), ElementsAre(false, false, false, false, false, false));
        },
        [&] { Key(keys::kEscape); }});
  EXPECT_EQ(form_.Form7, nullptr);
}

TEST_F(Form7Test, NamesItsRowsAndButtons) {
  Start();
  Open({[&] {
    EXPECT_THAT(
        Dialog().LstBloqueo.List,
        ElementsAre("Abrir Generador de Tarifas"_w, "Abrir Registro Historial"_w, "Abrir Registro Extras"_w,
                    "Abrir Registro Detalle Extras"_w, "Reiniciar Historial y Extras"_w,
                    "Botón Imprimir Registros/Ficha"_w, "Botón Búsqueda de Registros"_w,
                    "Botón Impresión de Tiquetes"_w, "Botón Impresión de Facturas"_w,
                    "Botón Registrar Extras"_w, "Cambiar Imagen de Fondo"_w, "Cambiar Nombre de Etiqueta"_w,
                    "Memoria de Rostros"_w, "Código de Barras Code39"_w, "Abrir Registro Nuevos"_w,
                    "Abrir Registro Puntos"_w, "Reiniciar Total Puntos"_w));
    EXPECT_EQ(Dialog().ImgBoton[7].Caption, "7"_w);
    EXPECT_EQ(Dialog().ImgBoton[10].ToolTipText, " Cancelar "_w);
    EXPECT_EQ(Dialog().ImgBoton[11].ToolTipText, " Confirmar "_w);
    EXPECT_EQ(Dialog().LblFuncion[0].Caption, "Bloquear Funciones"_w);
    EXPECT_EQ(Dialog().LblFuncion[1].Caption, "Cambiar Contraseña"_w);
    station_.Hands.CloseBox(Dialog());
  }});
}

// ---- The prompt
// ---------------------------------------------------------------------------------------------

TEST_F(Form7Test, ThePasswordOpensWhatWasLockedForThisRun) {
  Start("12345", Locking(1));
  ASSERT_TRUE(Locked());
  station_.Answers = {Answer::kOk};
  Open({[&] {
    station_.Type("12345");
    EXPECT_THAT(Marks(), ElementsAre(false, false, false, false, false, true));
    Confirm();
  }});
  EXPECT_THAT(Titles(), ElementsAre("Vintoral - Acceso Permitido"_w));
  EXPECT_EQ(station_.Boxes[0].text,
            "Todas las funciones seleccionadas previamente han sido desbloqueadas."_w);
  EXPECT_EQ(station_.Boxes[0].icon, Icon::kExclamation);
  EXPECT_FALSE(Locked());
  EXPECT_EQ(LastEvent(), 113);
  ASSERT_NE(form_.Form7, nullptr);
  EXPECT_FALSE(Dialog().Shown());
  EXPECT_TRUE(Dialog().LstBloqueo.Visible);
  EXPECT_THAT(Ticked(), ElementsAre(0u));
  EXPECT_THAT(Marks(), ElementsAre(false, false, false, false, false, true));
  EXPECT_FALSE(DigitsOn());
  EXPECT_EQ(Stored(), LockRecord("12345", Locking(1)));
}

TEST_F(Form7Test, WithNothingLockedItLeadsToThePanel) {
  Start("12345");
  Open({[&] {
          station_.Type("12345");
          Key(keys::kEnter);
        },
        [&] {
          EXPECT_TRUE(Dialog().Shown());
          EXPECT_TRUE(Dialog().LstBloqueo.Visible);
          EXPECT_TRUE(Dialog().LblFuncion[1].Visible);
          EXPECT_FALSE(DigitsOn());
          Key(keys::kEscape);
        }});
  EXPECT_THAT(station_.Boxes, IsEmpty());
  EXPECT_EQ(LastEvent(), 112);
  EXPECT_EQ(form_.Form7, nullptr);
}

TEST_F(Form7Test, AWrongPasswordOfAnyLengthIsTheEndOfIt) {
  for (const char* typed : {"", "1", "1234", "54321"}) {
    MemoryStation station;
    station.Disk.Put(kExt, ExtWith("12345", Locking(1)));
    station.StartConnected();
    station.Answers = {Answer::kOk};
    station.UnderBox = [&] {
      ASSERT_NE(station.Form.Form7, nullptr);
      EXPECT_FALSE(station.Form.Form7->Shown());
    };
    station.InDialog = {[&] {
      station.Type(typed);
      station.Hands.Key(keys::kEnter, 0);
    }};
    station.Hands.Key(keys::kF9, 0);
    ASSERT_EQ(station.Boxes.size(), 1u) << typed;
    EXPECT_EQ(station.Boxes[0].title, "Vintoral - Acceso Denegado"_w);
    EXPECT_EQ(station.Boxes[0].text, "La contraseña no es valida."_w);
    EXPECT_EQ(station.Boxes[0].icon, Icon::kExclamation);
    EXPECT_EQ(station.Form.Form7, nullptr) << typed;
    EXPECT_TRUE(station.Form.ImgIndicador[indicador::kBloqueo].Visible) << typed;
  }
}

TEST_F(Form7Test, NothingOfThePasswordShowsInThePrompt) {
  Start("12345");
  Open({[&] {
          station_.Type("1234");
          EXPECT_THAT(Marks(), ElementsAre(false, false, false, false, false, false));
          for (const Label& mark : Dialog().LblSeleccion)
            EXPECT_EQ(mark.Caption, ""_w);
          for (const Control* control : Dialog().Controls())
            EXPECT_EQ(control->Tag, ""_w) << control->Name;
        },
        [&] { Key(keys::kEscape); }, [&] { Key(keys::kEscape); }});
}

TEST_F(Form7Test, CancellingBeginsAnew) {
  Start("12345", Locking(1));
  station_.Answers = {Answer::kOk};
  Open({[&] {
          station_.Type("99912");
          station_.Hands.Click(Dialog().ImgBoton[Form7::kCancelar]);
          EXPECT_THAT(Marks(), ElementsAre(false, false, false, false, false, false));
        },
        [&] {
          station_.Type("9");
          Key(keys::kEscape);
          EXPECT_TRUE(Dialog().Shown());
        },
        [&] {
          station_.Type("12345");
          Confirm();
        }});
  EXPECT_FALSE(Locked());
}

// ---- The keys
// ---------------------------------------------------------------------------------------------

TEST_F(Form7Test, ASixthDigitIsNotEvenHeard) {
  Start("12345", Locking(1));
  station_.Answers = {Answer::kOk};
  Open({[&] {
    for (const char digit : {'1', '2', '3', '4', '5'}) {
      station_.Events.Take();
      station_.Hands.Click(Dialog().ImgBoton[static_cast<std::size_t>(digit - '0')]);
      EXPECT_THAT(station_.Heard(), ElementsAre(String(sonido::kClic)));
    }
    station_.Type("6");
    station_.Hands.Click(Dialog().ImgBoton[6]);
    EXPECT_THAT(station_.Events.Take(), IsEmpty());
    Confirm();
  }});
  EXPECT_FALSE(Locked());
}

TEST_F(Form7Test, EveryOtherKeyIsRefusedWithABeep) {
  Start("12345");
  Open({[&] {
          for (const int code : {int{'A'}, keys::kBackspace, keys::kSpace, keys::kTab, keys::kLeft,
                                 keys::kDown, keys::kF9, keys::kF1, keys::kDelete, keys::kHome}) {
            station_.Events.Take();
            Key(code);
            EXPECT_EQ(station_.Beeps(), 1) << code;
          }
          for (const int mask : {keys::kControl, keys::kAlt, keys::kControl | keys::kAlt}) {
            station_.Hands.Key('5', mask);
            EXPECT_EQ(station_.Beeps(), 1) << mask;
          }
          station_.Type("-x");
          EXPECT_EQ(station_.Beeps(), 2);
          EXPECT_EQ(Dialog().Focus(), nullptr);
        },
        [&] { Key(keys::kEscape); }});
}

TEST_F(Form7Test, AModifierAloneIsNoKey) {
  Start("12345");
  Open({[&] {
          for (const int code : {0, 16, 17, 18})
            Key(code);
          station_.Hands.Key(16, keys::kShift);
          station_.Hands.Key(17, keys::kControl);
          EXPECT_EQ(station_.Beeps(), 0);
        },
        [&] { Key(keys::kEscape); }});
}

TEST_F(Form7Test, DigitsComeFromBothRowsOfKeys) {
  Start("12305", Locking(1));
  station_.Answers = {Answer::kOk};
  Open({[&] {
    for (const int code : {int{'1'}, keys::kNumpad0 + 2, int{'3'}, keys::kNumpad0, int{'5'}})
      Key(code);
    Key(keys::kEnter);
  }});
  EXPECT_FALSE(Locked());
}

TEST_F(Form7Test, WhereTheDigitsAreOffTheyDoNothing) {
  Start();
  Open({[&] {
          ASSERT_FALSE(DigitsOn());
          station_.Events.Take();
          station_.Type("12345");
          EXPECT_THAT(station_.Events.Take(), IsEmpty());
          EXPECT_THAT(Marks(), ElementsAre(false, false, false, false, false, true));
        },
        [&] { Key(keys::kEscape); }});
}

TEST_F(Form7Test, ASpaceTurnsNoRowOver) {
  Start();
  Open({[&] {
          Tick(3);
          EXPECT_EQ(Dialog().Focus(), nullptr);
          station_.Hands.Focus(Dialog().LstBloqueo);
          Key(keys::kSpace);
          EXPECT_THAT(Ticked(), ElementsAre(3u));
        },
        [&] { Key(keys::kEscape); }});
}

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
  Start("12345", Locking(8));
  station_.Answers = {Answer::kOk};
  Open({[&] {
    station_.Type("12345");
    Confirm();
  }});
  station_.Boxes.clear();
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
  Start("12345", Locking(8));
  station_.Answers = {Answer::kOk, Answer::kOk};
  Open({[&] {
    station_.Type("12345");
    Confirm();
  }});
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
    Start("12345", Locking(8));
    station_.Answers = {Answer::kOk};
    Open({[&] {
      station_.Type("12345");
      Confirm();
    }});
    station_.Boxes.clear();
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
