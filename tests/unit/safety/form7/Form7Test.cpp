// The keypad as it comes up, the prompt of the password, and its keys.
#include "station/form1/Sonidos.h"
#include "unit/safety/form7/Form7Fixture.h"

namespace vintoral {
namespace {

using test::ExtWith;
using test::Form7Test;
using test::kExt;
using test::Locking;
using test::LockRecord;
using test::MemoryStation;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr Color kActive = 0xC0C0FF, kInactive = 0xC0FFC0;

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
    for (const auto& [key, caption] : {std::pair{0U, "0"_w}, {1U, "1"_w}, {7U, "7"_w}, {9U, "9"_w}})
      EXPECT_EQ(Dialog().ImgBoton[key].Caption, caption);
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

TEST_F(Form7Test, TwoQuickPressesAreTwoDigits) {
  Start("11223", Locking(1));
  ASSERT_TRUE(Locked());
  station_.Answers = {Answer::kOk};
  Open({[&] {
    for (const std::size_t digit : {1U, 2U}) {
      station_.Hands.Click(Dialog().ImgBoton[digit]);
      station_.Hands.DoubleClick(Dialog().ImgBoton[digit]);  // the second press of a quick hand
    }
    station_.Hands.Click(Dialog().ImgBoton[3]);
    Confirm();
  }});
  EXPECT_THAT(Titles(), ElementsAre("Vintoral - Acceso Permitido"_w));
  EXPECT_FALSE(Locked());
}

TEST_F(Form7Test, EnterConfirmsWhereItComesAsACharacterAlone) {
  Start("12345", Locking(1));
  ASSERT_TRUE(Locked());
  station_.Answers = {Answer::kOk};
  Open({[&] {
    station_.Type("12345\r");
    EXPECT_EQ(station_.Beeps(), 0);
  }});
  EXPECT_THAT(Titles(), ElementsAre("Vintoral - Acceso Permitido"_w));
  EXPECT_FALSE(Locked());
}

}  // namespace
}  // namespace vintoral
