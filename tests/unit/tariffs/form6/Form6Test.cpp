// The tariff dialog as hands use it, from Ctrl+T to its end.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "support/Bytes.h"
#include "support/MemoryStation.h"
#include "tariffs/Curva.h"
#include "tariffs/form6/Form6.h"

namespace vintoral {
namespace {

using test::MemoryStation;
using test::TariffFile;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kEmp = "Recursos\\Vintoral.EMP";
constexpr const char* kXtr = "Recursos\\Vintoral.XTR";
constexpr const char* kDvs = "Recursos\\Vintoral.DVS";

class Form6Test : public testing::Test {
 protected:
  Form6Test() {
    station_.Disk.Put(kEmp, TariffFile({" auto", " 1m = 5*", "", " moto", " 1h = 600"}));
    station_.Disk.Put(kXtr, TariffFile({"", " cafe = 5"}));
    station_.StartConnected();
  }
  /// Opens the dialog by its key, does `steps` in it, and leaves it by Esc where they have not left it
  /// already.
  void Dialog(const std::vector<std::function<void()>>& steps) {
    station_.InDialog = {steps.begin(), steps.end()};
    station_.InDialog.emplace_back([this] { hands_.Key(keys::kEscape, 0); });
    hands_.Key('T', keys::kControl);
    EXPECT_EQ(form_.Form6, nullptr);
  }
  Form6& Boxes() { return *form_.Form6; }
  TextBox& Tab(std::size_t tab) { return Boxes().TxtTarifas[tab]; }

  MemoryStation station_;
  Form1& form_ = station_.Form;
  Input& hands_ = station_.Hands;
};

TEST_F(Form6Test, OpensOnItsFirstTabWithNothingChanged) {
  Dialog({[this] {
    EXPECT_TRUE(Tab(0).Visible);
    EXPECT_FALSE(Tab(1).Visible);
    EXPECT_FALSE(Tab(2).Visible);
    EXPECT_EQ(Boxes().Focus(), &Tab(0));
    EXPECT_EQ(Tab(0).Text(), "AUTO\r\n1M = 5*\r\n\r\nMOTO\r\n1H = 600"_w);
    EXPECT_EQ(Boxes().TxtMoneda.Text(), "$"_w);
    for (const TextBox& tab : Boxes().TxtTarifas)
      EXPECT_EQ(tab.Tag, "0"_w);
    EXPECT_EQ(Boxes().TxtMoneda.Tag, "0"_w);
    EXPECT_EQ(Boxes().LblFuncion[0].BackColor, 0xC0C0FF);
    EXPECT_EQ(Boxes().LblFuncion[1].BackColor, 0xC0FFC0);
    EXPECT_EQ(Boxes().LblFuncion[2].BackColor, 0xC0FFC0);
  }});
}

TEST_F(Form6Test, HasItsCaptions) {
  Dialog({[this] {
    EXPECT_EQ(Boxes().LblFuncion[0].Caption, "Tiempos"_w);
    EXPECT_EQ(Boxes().LblFuncion[1].Caption, "Extras"_w);
    EXPECT_EQ(Boxes().LblFuncion[2].Caption, "Tarjetas Prepago"_w);
    EXPECT_EQ(Boxes().LblFuncion[3].Caption, "Símbolo Moneda"_w);
    EXPECT_EQ(Boxes().CmdFuncion[0].Caption, "CANCELAR"_w);
    EXPECT_EQ(Boxes().CmdFuncion[1].Caption, "GUARDAR"_w);
    EXPECT_EQ(Boxes().LblEjemplo.Caption, "Ejemplos"_w);
    EXPECT_EQ(Boxes().Find("CmdFuncion(0)"), &Boxes().CmdFuncion[0]);
    EXPECT_EQ(Boxes().Find("CmdFuncion(1)"), &Boxes().CmdFuncion[1]);
    EXPECT_EQ(Boxes().Find("LblFuncion(3)"), &Boxes().LblFuncion[3]);
    EXPECT_EQ(Boxes().Find("LblEjemplo"), &Boxes().LblEjemplo);
    EXPECT_EQ(Boxes().Find("PctCurva"), &Boxes().PctCurva);
  }});
}

TEST_F(Form6Test, AClickOnATabShowsItsTextAndKeepsTheOthers) {
  Dialog({[this] {
            station_.Type("X");
            hands_.Click(Boxes().LblFuncion[2]);
            EXPECT_FALSE(Tab(0).Visible);
            EXPECT_FALSE(Tab(1).Visible);
            EXPECT_TRUE(Tab(2).Visible);
            EXPECT_EQ(Boxes().Focus(), &Tab(2));
            EXPECT_EQ(Boxes().LblFuncion[0].BackColor, 0xC0FFC0);
            EXPECT_EQ(Boxes().LblFuncion[2].BackColor, 0xC0C0FF);
          },
          [this] {
            hands_.Click(Boxes().LblFuncion[0]);
            EXPECT_EQ(Tab(0).Text(), "XAUTO\r\n1M = 5*\r\n\r\nMOTO\r\n1H = 600"_w);
            EXPECT_TRUE(Tab(0).Visible);
            EXPECT_FALSE(Tab(2).Visible);
          }});
}

TEST_F(Form6Test, TypingMarksWhatHasChanged) {
  Dialog({[this] {
    station_.Type("X");
    EXPECT_EQ(Tab(0).Tag, "1"_w);
    EXPECT_EQ(Tab(1).Tag, "0"_w);
    EXPECT_EQ(Boxes().TxtMoneda.Tag, "0"_w);
    hands_.Focus(Boxes().TxtMoneda);
    station_.Type("S");
    EXPECT_EQ(Boxes().TxtMoneda.Tag, "1"_w);
  }});
}

TEST_F(Form6Test, SavingTakesTheTextIntoTableListAndFile) {
  Dialog({[this] {
    hands_.ReplaceText(Tab(0), " automovil \r\n 1h=700"_w);
    hands_.ReplaceText(Boxes().TxtMoneda, "COP"_w);
    hands_.Click(Boxes().CmdFuncion[1]);
    EXPECT_EQ(form_.Form6, nullptr);
  }});
  EXPECT_THAT(form_.TablaTarifas, ElementsAre("AUTOMOVIL"_w, "1H=700"_w));
  EXPECT_EQ(form_.CboTarifa[1].Text(), "AUTOMOVIL"_w);
  EXPECT_EQ(station_.Disk.Get(kEmp), TariffFile({"AUTOMOVIL", "1H=700"}));
  EXPECT_EQ(form_.Moneda, "COP"_w);
  EXPECT_EQ(station_.Disk.Get(kDvs), "COP\r\n");
  Dialog({[this] { EXPECT_EQ(Tab(0).Text(), "AUTOMOVIL\r\n1H=700"_w); }});
}

TEST_F(Form6Test, SavingWithNoChangeWritesNothing) {
  ASSERT_TRUE(station_.Disk.Remove(kXtr));
  ASSERT_TRUE(station_.Disk.Remove(kDvs));
  station_.Disk.Put(kXtr, "x");
  Dialog({[this] { hands_.Click(Boxes().CmdFuncion[1]); }});
  EXPECT_EQ(station_.Disk.Get(kXtr), "x");
  EXPECT_FALSE(station_.Disk.Exists(kDvs));
  EXPECT_THAT(form_.TablaTarifas, ElementsAre("AUTO"_w, "1M = 5*"_w, ""_w, "MOTO"_w, "1H = 600"_w));
}

TEST_F(Form6Test, TheCurrencyAloneLeavesTheTables) {
  station_.Disk.Put(kEmp, "x");
  Dialog({[this] {
    hands_.ReplaceText(Boxes().TxtMoneda, "US$"_w);
    hands_.Click(Boxes().CmdFuncion[1]);
  }});
  EXPECT_EQ(station_.Disk.Get(kEmp), "x");
  EXPECT_EQ(station_.Disk.Get(kDvs), "US$\r\n");
}

TEST_F(Form6Test, CancellingAndEscKeepEverythingAsItWas) {
  for (const bool escape : {false, true}) {
    Dialog({[this, escape] {
      hands_.ReplaceText(Tab(0), "NADA"_w);
      hands_.ReplaceText(Boxes().TxtMoneda, "X"_w);
      if (escape) return hands_.Key(keys::kEscape, 0);
      hands_.Click(Boxes().CmdFuncion[0]);
      EXPECT_EQ(form_.Form6, nullptr);
    }});
    EXPECT_EQ(form_.TablaTarifas[0], "AUTO"_w);
    EXPECT_EQ(form_.Moneda, "$"_w);
    EXPECT_EQ(station_.Disk.Get(kDvs), "$\r\n");
  }
}

TEST_F(Form6Test, TheCurrencyTakesNoBlankAndNoEnterAndTenCharacters) {
  Dialog({[this] {
    hands_.Focus(Boxes().TxtMoneda);
    Boxes().TxtMoneda.SelectAll();
    station_.Type("A B\rCDEFGHIJKLM");
    EXPECT_EQ(Boxes().TxtMoneda.Text(), "ABCDEFGHIJ"_w);
    EXPECT_EQ(station_.Beeps(), 0);
  }});
}

TEST_F(Form6Test, OtherKeysAreNoCommandsOfTheMainScreen) {
  form_.LblConexion[0].BackColor = kLightRed;
  Dialog({[this] {
    station_.Events.Take();
    hands_.Key(keys::kF1 + 9, 0);
    hands_.Key('F', keys::kControl);
    EXPECT_THAT(station_.Launched(), IsEmpty());
    EXPECT_FALSE(Boxes().Form_KeyDown('T', keys::kControl));
  }});
}

TEST_F(Form6Test, TabGoesFromTheTextByTheCurrencyToTheButtonsAndBack) {
  Dialog({[this] {
    for (const Control* next : std::initializer_list<const Control*>{
             &Boxes().TxtMoneda, &Boxes().CmdFuncion[1], &Boxes().CmdFuncion[0], &Tab(0)}) {
      hands_.Key(keys::kTab, 0);
      EXPECT_EQ(Boxes().Focus(), next);
    }
  }});
}

TEST_F(Form6Test, TheExamplesOpenOnTheProductsPage) {
  station_.Disk.Put("Objetos\\Web.INI", "; nota\nDireccion = https://ayuda.example\n");
  Dialog({[this] {
    station_.Events.Take();
    hands_.Click(Boxes().LblEjemplo);
    EXPECT_THAT(station_.Launched(),
                ElementsAre("Explorer.exe https://ayuda.example/vintoral/ejemplos.txt"_w));
  }});
}

TEST_F(Form6Test, TheWebAddressStandsInAFileMadeWithTheFirstStart) {
  const std::string made = station_.Disk.Get("Objetos\\Web.INI");
  EXPECT_TRUE(made.starts_with("; "));
  EXPECT_NE(made.find("\r\nDireccion = https://"), std::string::npos);
  EXPECT_EQ(form_.DireccionWeb(), "https://vintoral.example"_w);
  station_.Disk.Put("Objetos\\Web.INI", "nada");
  EXPECT_EQ(form_.DireccionWeb(), "https://vintoral.example"_w);
}

// ---- What is shown while typing
// --------------------------------------------------------------------------------

TEST_F(Form6Test, ALineThatIsNotTakenIsMarkedWhileItIsTyped) {
  Dialog({[this] {
    EXPECT_THAT(Tab(0).Marks, IsEmpty());
    hands_.MoveCaret(Tab(0), 11, 1);  // the "5" of the second line
    station_.Type("x");
    ASSERT_EQ(Tab(0).Marks.size(), 1u);
    EXPECT_EQ(Tab(0).Marks[0].line, 1u);
    EXPECT_FALSE(Tab(0).Marks[0].reason.Empty());
    station_.Type("\b7");
    EXPECT_THAT(Tab(0).Marks, IsEmpty());
  }});
}

TEST_F(Form6Test, TheOtherTabsAreReadByTheirOwnRules) {
  Dialog({[this] {
    hands_.Click(Boxes().LblFuncion[1]);
    hands_.ReplaceText(Tab(1), "CAFE = 5\r\nSIN PRECIO"_w);
    ASSERT_EQ(Tab(1).Marks.size(), 1u);
    EXPECT_EQ(Tab(1).Marks[0].line, 1u);
    hands_.Click(Boxes().LblFuncion[2]);
    hands_.ReplaceText(Tab(2), "SIN PRECIO"_w);
    EXPECT_THAT(Tab(2).Marks, IsEmpty());
  }});
}

TEST_F(Form6Test, AMarkKeepsNothingFromBeingSaved) {
  Dialog({[this] {
    hands_.ReplaceText(Tab(0), "AUTO\r\n5 = X"_w);
    ASSERT_FALSE(Tab(0).Marks.empty());
    hands_.Click(Boxes().CmdFuncion[1]);
  }});
  EXPECT_EQ(station_.Disk.Get(kEmp), TariffFile({"AUTO", "5 = X"}));
}

TEST_F(Form6Test, TheCurveIsOfTheCategoryUnderTheCaret) {
  Dialog({[this] {
    Chart& curve = Boxes().PctCurva;
    EXPECT_EQ(curve.Caption, "AUTO"_w);
    ASSERT_EQ(curve.Values.size(), kPuntosCurva);
    EXPECT_EQ(curve.Values[37], Money::FromUnits(185));  // 37 minutes at 5
    hands_.ControlKey(keys::kEnd, keys::kControl);
    EXPECT_EQ(curve.Caption, "MOTO"_w);
    ASSERT_EQ(curve.Values.size(), kPuntosCurva);
    EXPECT_EQ(curve.Values[60], Money::FromUnits(600));
    station_.Type("0");
    EXPECT_EQ(curve.Values[60], Money::FromUnits(6000));
    hands_.MoveCaret(Tab(0), 15, 0);  // the blank line between the two
    EXPECT_EQ(curve.Caption, ""_w);
    EXPECT_THAT(curve.Values, IsEmpty());
  }});
}

TEST_F(Form6Test, TheCurveBelongsToTheTimesAlone) {
  Dialog({[this] {
    EXPECT_TRUE(Boxes().PctCurva.Visible);
    hands_.Click(Boxes().LblFuncion[1]);
    EXPECT_FALSE(Boxes().PctCurva.Visible);
    hands_.Click(Boxes().LblFuncion[0]);
    EXPECT_TRUE(Boxes().PctCurva.Visible);
  }});
}

TEST_F(Form6Test, TheEndOfTheProgramUnderItTakesItAway) {
  station_.InDialog = {[this] { form_.CerrarSinPreguntar(); }};
  hands_.Key('T', keys::kControl);
  EXPECT_TRUE(form_.Terminado());
  EXPECT_EQ(form_.Form6, nullptr);
}

}  // namespace
}  // namespace vintoral
