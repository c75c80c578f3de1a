// The dialog of the articles as hands use it.
#include "sales/form4/Form4.h"

#include <gmock/gmock.h>

#include <limits>

#include "unit/sales/ExtrasFixture.h"

namespace vintoral {
namespace {

using testing::Each;
using testing::ElementsAre;

using Form4Test = test::ExtrasTest;

TEST_F(Form4Test, OpensWithTheArticlesOfTheTableNoneOfThemTicked) {
  form_.TablaExtras = {"MINUTO = 200"_w, "SIN PRECIO"_w, ""_w, "CAFE = 5000"_w};
  Dialog([this] {
    EXPECT_THAT(Extras().LstArticulo.List, ElementsAre("MINUTO"_w, "CAFE"_w));
    EXPECT_THAT(Extras().LstArticulo.Checked, ElementsAre(false, false));
    EXPECT_THAT(form_.CantidadArticulo, testing::SizeIs(2));
    EXPECT_THAT(form_.PrecioArticulo, ElementsAre(Money::FromUnits(200), Money::FromUnits(5000)));
    for (std::size_t row = 0; row < Form4::kFilas; ++row) {
      EXPECT_FALSE(HasQuantity(row)) << row;
      EXPECT_EQ(Quantity(row), "0"_w) << row;
      EXPECT_EQ(Value(row), "0"_w) << row;
      EXPECT_EQ(Extras().TxtTotal[row].Visible, row < 2) << row;
    }
    EXPECT_EQ(Total(), "0"_w);
    EXPECT_EQ(Extras().CmdRegistrar.Caption, "REGISTRAR"_w);
    std::vector<String> heads;
    for (const Label& head : Extras().LblItem)
      heads.push_back(head.Caption);
    EXPECT_THAT(heads, ElementsAre("ARTÍCULO"_w, "CANTIDAD"_w, "VALOR"_w, "TOTAL"_w));
    EXPECT_EQ(Extras().Focus(), &Extras().LstArticulo);
    EXPECT_EQ(Extras().LstArticulo.ListIndex, 0);
  });
}

TEST_F(Form4Test, TheButtonOpensItToo) {
  station_.InDialog = {[this] { Key(keys::kEscape); }};
  hands_.Click(form_.PctBoton[boton::kExtras]);
  EXPECT_TRUE(station_.InDialog.empty());
  EXPECT_EQ(form_.Form4, nullptr);
}

TEST_F(Form4Test, WithoutArticlesThereIsNothingToTick) {
  form_.TablaExtras.clear();
  Dialog([this] {
    EXPECT_TRUE(Extras().LstArticulo.List.empty());
    EXPECT_EQ(Extras().LstArticulo.ListIndex, -1);
    for (const int key : {keys::kSpace, keys::kDown, keys::kPageUp, static_cast<int>('5')})
      Key(key);
    EXPECT_EQ(Total(), "0"_w);
    Register();
  });
  EXPECT_EQ(List(), "(missing)");
}

TEST_F(Form4Test, ATickIsOneOfIt) {
  Dialog([this] {
    Tick(1);
    EXPECT_TRUE(HasQuantity(1));
    EXPECT_EQ(Quantity(1), "1"_w);
    EXPECT_EQ(Extras().CboCantidad[1].SelLength, 1u);
    EXPECT_EQ(Value(1), "5000"_w);
    EXPECT_EQ(Total(), "5000"_w);
    Tick(3);
    EXPECT_EQ(Value(3), "0.5"_w);
    EXPECT_EQ(Total(), "5000.5"_w);
    EXPECT_FALSE(HasQuantity(0));
  });
}

TEST_F(Form4Test, WithoutItsTickItIsNone) {
  Dialog([this] {
    Tick(0);
    Tick(1);
    station_.Type("7");
    ASSERT_EQ(Total(), "35200"_w);
    Tick(1, 0);
    EXPECT_FALSE(HasQuantity(1));
    EXPECT_EQ(Quantity(1), "0"_w);
    EXPECT_EQ(Value(1), "0"_w);
    EXPECT_EQ(Total(), "200"_w);
    Tick(1);
    EXPECT_EQ(Quantity(1), "1"_w);
    EXPECT_EQ(Total(), "5200"_w);
  });
}

TEST_F(Form4Test, TheTotalIsRightWithEachDigit) {
  Dialog([this] {
    Tick(1);
    hands_.Focus(Extras().CboCantidad[1]);
    station_.Type("1");
    EXPECT_EQ(Total(), "5000"_w);
    station_.Type("2");
    EXPECT_EQ(Value(1), "60000"_w);
    EXPECT_EQ(Total(), "60000"_w);
    station_.Type("0");
    EXPECT_EQ(Total(), "600000"_w);
    EXPECT_EQ(form_.CantidadArticulo[1], 120);
    Key(keys::kBackspace);
    EXPECT_EQ(Total(), "60000"_w);
  });
}

TEST_F(Form4Test, AQuantityHasThreeDigitsAndNothingElse) {
  Dialog([this] {
    Tick(1);
    hands_.Focus(Extras().CboCantidad[1]);
    station_.Type("123");
    ASSERT_EQ(station_.Beeps(), 0);
    station_.Type("4");
    EXPECT_EQ(station_.Beeps(), 1);
    EXPECT_EQ(Quantity(1), "123"_w);
    station_.Type("a-. ");
    EXPECT_EQ(station_.Beeps(), 4);
    EXPECT_EQ(Quantity(1), "123"_w);
    Key(keys::kBackspace);
    EXPECT_EQ(station_.Beeps(), 0);
    EXPECT_EQ(Quantity(1), "12"_w);
  });
}

TEST_F(Form4Test, ADigitReplacesThreeThatAreMarked) {
  Dialog([this] {
    Tick(1);
    hands_.ReplaceText(Extras().CboCantidad[1], "123"_w);
    ASSERT_EQ(Quantity(1), "123"_w);
    hands_.Focus(Extras().LstArticulo);
    hands_.Focus(Extras().CboCantidad[1]);
    EXPECT_EQ(Extras().CboCantidad[1].SelLength, 3u);
    station_.Type("4");
    EXPECT_EQ(Quantity(1), "4"_w);
    hands_.ReplaceText(Extras().CboCantidad[1], "98765"_w);
    EXPECT_EQ(Quantity(1), "987"_w);
    EXPECT_EQ(form_.CantidadArticulo[1], 987);
  });
}

TEST_F(Form4Test, AnEmptiedQuantityIsOneAndCountsOne) {
  Dialog([this] {
    Tick(1);
    hands_.Focus(Extras().CboCantidad[1]);
    station_.Type("8");
    ASSERT_EQ(Total(), "40000"_w);
    Key(keys::kBackspace);
    EXPECT_EQ(Quantity(1), "1"_w);
    EXPECT_EQ(Extras().CboCantidad[1].SelStart, 0u);
    EXPECT_EQ(Extras().CboCantidad[1].SelLength, 1u);
    EXPECT_EQ(form_.CantidadArticulo[1], 1);
    EXPECT_EQ(Value(1), "5000"_w);
    EXPECT_EQ(Total(), "5000"_w);
    station_.Type("6");
    EXPECT_EQ(Quantity(1), "6"_w);
    Key(keys::kHome);
    Key(keys::kDelete);
    EXPECT_EQ(Quantity(1), "1"_w);
    EXPECT_EQ(Total(), "5000"_w);
  });
}

TEST_F(Form4Test, NoneOfATickedArticleIsNothing) {
  Dialog([this] {
    Tick(1);
    station_.Type("0");
    EXPECT_TRUE(HasQuantity(1));
    EXPECT_EQ(form_.CantidadArticulo[1], 0);
    EXPECT_EQ(Total(), "0"_w);
  });
}

class LimitTest : public test::ExtrasTest {
 protected:
  LimitTest() : ExtrasTest({"CASA = 1000000", "LOTE = 999999999", "FINCA = 333333333", "CASI = 9999999.9"}) {}
};

TEST_F(LimitTest, NineHundredAndNinetyNineMillionsAreAccepted) {
  Dialog([this] {
    Tick(0);
    station_.Type("999");
    EXPECT_EQ(Quantity(0), "999"_w);
    EXPECT_EQ(Total(), "999000000"_w);
    EXPECT_EQ(station_.Beeps(), 0);
  });
}

TEST_F(LimitTest, FromALineOfOneLessThanAThousandMillionsOnNothingChanges) {
  Dialog([this] {
    Tick(2);
    station_.Type("2");
    ASSERT_EQ(Total(), "666666666"_w);
    ASSERT_EQ(station_.Beeps(), 0);
    hands_.ReplaceText(Extras().CboCantidad[2], "3"_w);  // 999999999
    EXPECT_EQ(Quantity(2), "2"_w);
    EXPECT_EQ(form_.CantidadArticulo[2], 2);
    EXPECT_EQ(Value(2), "666666666"_w);
    EXPECT_EQ(Total(), "666666666"_w);
    EXPECT_EQ(station_.Beeps(), 1);
  });
}

TEST_F(LimitTest, BelowItCentsDecide) {
  Dialog([this] {
    Tick(3);
    station_.Type("100");  // 999999990
    EXPECT_EQ(Total(), "999999990"_w);
    hands_.ReplaceText(Extras().CboCantidad[3], "101"_w);
    EXPECT_EQ(Quantity(3), "100"_w);
  });
}

TEST_F(LimitTest, OneCanAlwaysBeSoldAndNoMore) {
  Dialog([this] {
    Tick(1);
    EXPECT_EQ(Quantity(1), "1"_w);
    EXPECT_EQ(Total(), "999999999"_w);
    station_.Type("2");
    EXPECT_EQ(Quantity(1), "1"_w);
    EXPECT_EQ(Total(), "999999999"_w);
    EXPECT_EQ(station_.Beeps(), 1);
    station_.Type("0");  // behind the 1 that came back
    EXPECT_EQ(Quantity(1), "1"_w);
    Tick(0);
    EXPECT_EQ(Total(), "1000999999"_w);
  });
}

TEST_F(Form4Test, ATotalThatRunsOverIsAnError) {
  Dialog([this] {
    Tick(1);
    ASSERT_EQ(Total(), "5000"_w);
    form_.PrecioArticulo[0] = form_.PrecioArticulo[2] =
        Money::FromRaw(std::numeric_limits<std::int64_t>::max() / 2);
    Tick(0);
    Tick(2);
    EXPECT_EQ(Total(), "¡ERROR!"_w);
    Tick(2, 0);
    // 9223372036854775807 / 2 is 4611686018427387903 ten-thousandths; and a coffee.
    EXPECT_EQ(Total(), "461168601847738.7903"_w);
  });
}

TEST_F(Form4Test, ValuesAreForReading) {
  Dialog([this] {
    Tick(1);
    hands_.ReplaceText(Extras().TxtTotal[1], "1"_w);
    hands_.ReplaceText(Extras().TxtTotal[Form4::kTotal], "1"_w);
    EXPECT_EQ(Value(1), "5000"_w);
    EXPECT_EQ(Total(), "5000"_w);
    hands_.Focus(Extras().TxtTotal[1]);
    EXPECT_EQ(Extras().Focus(), &Extras().LstArticulo);
  });
}

TEST_F(Form4Test, EscSellsNothing) {
  Dialog([this] { Tick(0); });
  EXPECT_EQ(List(), "(missing)");
}

TEST_F(Form4Test, WithoutATickRegistrarClosesAndSellsNothing) {
  Dialog([this] {
    Register();
    EXPECT_FALSE(form_.OpenForms.Find("Form4") != nullptr);
  });
  EXPECT_EQ(List(), "(missing)");
}

TEST_F(Form4Test, TheTickOfTheInvoiceLeadsBackToTheListAndIsClearNextTime) {
  Dialog([this] {
    hands_.Focus(Extras().ChkFactura);
    ASSERT_EQ(Extras().Focus(), &Extras().ChkFactura);
    Key(keys::kSpace);
    EXPECT_EQ(Extras().ChkFactura.Value, 1);
    EXPECT_EQ(Extras().Focus(), &Extras().LstArticulo);
  });
  Dialog([this] { EXPECT_EQ(Extras().ChkFactura.Value, 0); });
}

TEST_F(Form4Test, TheBlankThatPressesRegistrarTypesNothingBehindIt) {
  station_.TypeAndEnter("7");
  station_.Type("ab");
  TextBox& plate = form_.TxtCampo[1];
  ASSERT_EQ(form_.Focus(), &plate);
  ASSERT_EQ(plate.Text(), "AB"_w);
  Dialog([this] {
    Tick(0);
    hands_.Focus(Extras().CmdRegistrar);
    station_.Events.Take();
    Key(keys::kSpace);
    EXPECT_EQ(form_.Form4, nullptr);
  });
  EXPECT_EQ(Line(1), Sold("MINUTO", 1, Money::FromUnits(200)));
  EXPECT_EQ(form_.Focus(), &plate);
  EXPECT_EQ(plate.Text(), "AB"_w);
  EXPECT_EQ(station_.Beeps(), 0);
}

TEST_F(Form4Test, AnotherOpeningKnowsNothingOfTheLastOne) {
  Dialog([this] {
    Tick(1);
    station_.Type("9");
    ASSERT_EQ(form_.CantidadArticulo[1], 9);
  });
  form_.TablaExtras = {"OTRO = 1"_w, "CAFE = 6000"_w};
  Dialog([this] {
    EXPECT_THAT(Extras().LstArticulo.Checked, Each(false));
    Tick(1);
    EXPECT_EQ(Total(), "6000"_w);
  });
}

// ---- By keys alone

TEST_F(Form4Test, ArrowsBlankDigitsAndEnterMakeASale) {
  Dialog([this] {
    Key(keys::kDown);
    Key(keys::kSpace);
    EXPECT_EQ(Quantity(1), "1"_w);
    Key('3');
    EXPECT_EQ(Extras().Focus(), &Extras().CboCantidad[1]);
    EXPECT_EQ(Quantity(1), "3"_w);
    Key(keys::kDown);
    EXPECT_EQ(Extras().Focus(), &Extras().LstArticulo);
    EXPECT_EQ(Extras().LstArticulo.ListIndex, 2);
    Key(keys::kSpace);
    Key('1');
    Key('2');
    EXPECT_EQ(Quantity(2), "12"_w);
    Key(keys::kEnter);
    EXPECT_EQ(Extras().Focus(), &Extras().CmdRegistrar);
    Key(keys::kEnter);
  });
  EXPECT_EQ(Line(1), Sold("CAFE", 3, Money::FromUnits(5000)));
  EXPECT_EQ(Line(2), Sold("CASCO MOTO", 12, Money::FromUnits(120'000)));
  EXPECT_EQ(Line(3), RegistroExtra{});
}

TEST_F(Form4Test, TabGoesFromTheListToTheQuantities) {
  Dialog([this] {
    Key(keys::kTab);
    EXPECT_EQ(Extras().Focus(), &Extras().ChkFactura);
    Tick(2);
    hands_.Focus(Extras().LstArticulo);
    Key(keys::kTab);
    EXPECT_EQ(Extras().Focus(), &Extras().CboCantidad[2]);
  });
}

TEST_F(Form4Test, EnterInTheListLeadsToTheButton) {
  Dialog([this] {
    Key(keys::kEnter);
    EXPECT_EQ(Extras().Focus(), &Extras().CmdRegistrar);
    // And what is typed there falls on no quantity.
    Key('5');
    EXPECT_EQ(Extras().Focus(), &Extras().CmdRegistrar);
  });
}

TEST_F(Form4Test, ADigitOnARowWithoutATickSellsNothing) {
  Dialog([this] {
    Tick(0);
    Key(keys::kDown);
    Key('4');
    EXPECT_EQ(station_.Beeps(), 1);
    EXPECT_EQ(Extras().Focus(), &Extras().LstArticulo);
    EXPECT_EQ(Total(), "200"_w);
    station_.Type("x");
    EXPECT_EQ(Total(), "200"_w);
  });
}

TEST_F(Form4Test, TheQuantityThatHasTheKeyboardIsTheRowsOfTheList) {
  Dialog([this] {
    Tick(0);
    Tick(2);
    hands_.Focus(Extras().CboCantidad[0]);
    EXPECT_EQ(Extras().LstArticulo.ListIndex, 0);
    Key(keys::kTab);
    EXPECT_EQ(Extras().Focus(), &Extras().CboCantidad[2]);
    EXPECT_EQ(Extras().LstArticulo.ListIndex, 2);
    EXPECT_EQ(Extras().CboCantidad[2].SelLength, 1u);
    for (const int key : {keys::kUp, keys::kPageUp, keys::kPageDown}) {
      hands_.Focus(Extras().CboCantidad[2]);
      Key(key);
      EXPECT_EQ(Extras().Focus(), &Extras().LstArticulo) << key;
    }
    Tick(2);
    hands_.Focus(Extras().CboCantidad[2]);
    Key(keys::kHome);
    EXPECT_EQ(Extras().Focus(), &Extras().CboCantidad[2]);
  });
}

TEST_F(Form4Test, AClickOnAQuantityCountsWhatStandsThere) {
  Dialog([this] {
    Tick(1);
    form_.CantidadArticulo[1] = 5;
    hands_.Click(Extras().CboCantidad[1]);
    EXPECT_EQ(form_.CantidadArticulo[1], 1);
    form_.CantidadArticulo[1] = 5;
    hands_.Click(Extras().LstArticulo);
    EXPECT_EQ(Quantity(1), "5"_w);
    EXPECT_EQ(Total(), "25000"_w);
  });
}

TEST_F(Form4Test, AnotherTickLeavesTheKeyboardInItsQuantity) {
  Dialog([this] {
    Tick(1);
    hands_.Focus(Extras().CboCantidad[1]);
    Tick(2);
    EXPECT_EQ(Extras().Focus(), &Extras().CboCantidad[1]);
  });
}

TEST_F(Form4Test, AQuantityThatGoesGivesTheKeyboardBack) {
  Dialog([this] {
    Tick(1);
    hands_.Focus(Extras().CboCantidad[1]);
    Tick(1, 0);
    EXPECT_EQ(Extras().Focus(), &Extras().LstArticulo);
  });
}

}  // namespace
}  // namespace vintoral
