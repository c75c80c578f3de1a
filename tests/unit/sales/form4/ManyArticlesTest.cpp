// More articles than rows: each row follows the list, and the quantities stay with their articles.
#include <string>
#include <vector>

#include "unit/sales/ExtrasFixture.h"

namespace vintoral {
namespace {

/// Article n, from 0, costs n + 1.
std::vector<std::string> Lines(int count) {
  std::vector<std::string> lines;
  for (int n = 0; n < count; ++n)
    lines.push_back("ARTICULO " + std::to_string(n) + " = " + std::to_string(n + 1));
  return lines;
}

class ManyArticlesTest : public test::ExtrasTest {
 protected:
  ManyArticlesTest() : ExtrasTest(Lines(25)) {}
  int& Top() { return Extras().LstArticulo.TopIndex; }
  void Scroll(int top) { ASSERT_TRUE(hands_.Scroll(Extras().LstArticulo, top)); }
};

TEST_F(ManyArticlesTest, RowsAreThoseOfTheArticlesInView) {
  Dialog([this] {
    Tick(3);
    station_.Type("5");
    Tick(19);
    Scroll(2);
    EXPECT_EQ(Quantity(1), "5"_w);  // article 3
    EXPECT_EQ(Value(1), "20"_w);
    EXPECT_TRUE(HasQuantity(17));
    EXPECT_FALSE(HasQuantity(3));
    EXPECT_FALSE(HasQuantity(19));
    EXPECT_EQ(Total(), "40"_w);
    Scroll(5);
    EXPECT_FALSE(HasQuantity(1));
    EXPECT_EQ(Total(), "40"_w);  // out of view it counts all the same
    Scroll(0);
    EXPECT_EQ(Quantity(3), "5"_w);
    EXPECT_EQ(Value(3), "20"_w);
  });
}

TEST_F(ManyArticlesTest, AQuantityTypedBehindAScrollIsThatOfItsArticle) {
  Dialog([this] {
    Scroll(5);
    Tick(24);
    station_.Type("40");
    EXPECT_EQ(Quantity(19), "40"_w);
    EXPECT_EQ(form_.CantidadArticulo[24], 40);
    EXPECT_EQ(form_.CantidadArticulo[19], 0);
    EXPECT_EQ(Total(), "1000"_w);
    Register();
  });
  EXPECT_EQ(Line(1), Sold("ARTICULO 24", 40, Money::FromUnits(25)));
}

TEST_F(ManyArticlesTest, TheListOfTheSaleIsInItsOrderWhateverWasInView) {
  Dialog([this] {
    Scroll(5);
    Tick(23);
    Scroll(0);
    Tick(1);
    Register();
  });
  EXPECT_EQ(Line(1), Sold("ARTICULO 1", 1, Money::FromUnits(2)));
  EXPECT_EQ(Line(2), Sold("ARTICULO 23", 1, Money::FromUnits(24)));
}

TEST_F(ManyArticlesTest, ArrowsTakeTheViewAlong) {
  Dialog([this] {
    for (int i = 0; i < 19; ++i)
      Key(keys::kDown);
    EXPECT_EQ(Top(), 0);
    Key(keys::kDown);
    EXPECT_EQ(Top(), 1);
    Key(keys::kSpace);
    EXPECT_TRUE(HasQuantity(19));
    EXPECT_EQ(Total(), "21"_w);
    Key(keys::kEnd);
    EXPECT_EQ(Top(), 5);
    EXPECT_TRUE(HasQuantity(15));
    Key(keys::kHome);
    EXPECT_EQ(Top(), 0);
    EXPECT_FALSE(HasQuantity(15));
    EXPECT_EQ(Total(), "21"_w);
  });
}

TEST_F(ManyArticlesTest, ATickOutOfViewComesIntoView) {
  Dialog([this] {
    Tick(24);
    EXPECT_EQ(Top(), 5);
    EXPECT_EQ(Quantity(19), "1"_w);
    EXPECT_EQ(Extras().LstArticulo.ListIndex, 24);
    Tick(2);
    EXPECT_EQ(Top(), 2);
    EXPECT_EQ(Quantity(0), "1"_w);
    EXPECT_EQ(Total(), "28"_w);
  });
}

TEST_F(ManyArticlesTest, ATickThatScrollsChangesTheTotalThoughNoRowShowsAnotherValue) {
  form_.TablaExtras.clear();
  for (int n = 0; n < 21; ++n)
    form_.TablaExtras.push_back("IGUAL = 7"_w);
  Dialog([this] {
    for (int n = 0; n < 20; ++n)
      Tick(n);
    ASSERT_EQ(Total(), "140"_w);
    Tick(20);
    EXPECT_EQ(Total(), "147"_w);
  });
}

TEST_F(ManyArticlesTest, ADigitGoesToTheRowThatTheListHasWhereverItWasScrolled) {
  Dialog([this] {
    Tick(1);
    Scroll(5);
    station_.Type("6");
    EXPECT_EQ(Top(), 1);
    EXPECT_EQ(form_.CantidadArticulo[1], 6);
    EXPECT_EQ(Extras().Focus(), &Extras().CboCantidad[0]);
  });
}

TEST_F(ManyArticlesTest, AScrollTakesTheKeyboardFromAQuantity) {
  Dialog([this] {
    Tick(3);
    Tick(4);
    hands_.Focus(Extras().CboCantidad[3]);
    Scroll(1);  // row 3 is article 4 now
    EXPECT_EQ(Extras().Focus(), &Extras().LstArticulo);
    hands_.Focus(Extras().CboCantidad[3]);
    EXPECT_EQ(Extras().LstArticulo.ListIndex, 4);
    Tick(24);
    EXPECT_EQ(Extras().Focus(), &Extras().LstArticulo);
  });
}

TEST_F(ManyArticlesTest, RowsBehindTheLastArticleAreEmpty) {
  Dialog([this] {
    Tick(24);
    Scroll(24);
    EXPECT_EQ(Quantity(0), "1"_w);
    EXPECT_TRUE(HasQuantity(0));
    EXPECT_FALSE(HasQuantity(1));
    EXPECT_FALSE(Extras().TxtTotal[1].Visible);
    EXPECT_EQ(Total(), "25"_w);
  });
}

}  // namespace
}  // namespace vintoral
