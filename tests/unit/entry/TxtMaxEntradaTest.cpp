// The validity of a ticket as it is typed.
#include <gtest/gtest.h>

#include "unit/entry/CodigosFixture.h"

namespace vintoral {
namespace {

using test::CodigosTest;

/// A new ticket, the caret in its validity.
class TxtMaxEntradaTest : public CodigosTest {
 protected:
  TxtMaxEntradaTest() {
    TypeTicket();
    form_.SetFocus(&form_.TxtMaxEntrada);
    station_.Events.Take();
  }
};

TEST_F(TxtMaxEntradaTest, ItsTextIsSelectedWhenItIsReached) {
  ASSERT_EQ(form_.TxtMaxEntrada.Text(), "1"_w);
  EXPECT_EQ(form_.TxtMaxEntrada.SelStart, 0u);
  EXPECT_EQ(form_.TxtMaxEntrada.SelLength, 1u);
  station_.Type("30");
  EXPECT_EQ(form_.TxtMaxEntrada.Text(), "30"_w);
}

TEST_F(TxtMaxEntradaTest, ItHoldsThreeCharacters) {
  station_.Type("1234");
  EXPECT_EQ(form_.TxtMaxEntrada.Text(), "123"_w);
  form_.SetFocus(&form_.TxtCampo[1]);
  form_.SetFocus(&form_.TxtMaxEntrada);
  EXPECT_EQ(form_.TxtMaxEntrada.SelLength, 3u);
}

TEST_F(TxtMaxEntradaTest, DigitsSeparatorsAndBackspacePass) {
  station_.Type("1,2");
  EXPECT_EQ(form_.TxtMaxEntrada.Text(), "1,2"_w);
  station_.Type("\b\b.5");
  EXPECT_EQ(form_.TxtMaxEntrada.Text(), "1.5"_w);
  EXPECT_EQ(station_.Beeps(), 0);
}

TEST_F(TxtMaxEntradaTest, EnterIsDropped) {
  station_.Type("30");
  station_.Hands.Key(keys::kEnter, 0);
  EXPECT_EQ(form_.TxtMaxEntrada.Text(), "30"_w);
  EXPECT_EQ(form_.Focus(), &form_.TxtMaxEntrada);
  EXPECT_TRUE(station_.Boxes.empty());
  EXPECT_EQ(station_.Beeps(), 0);
}

TEST_F(TxtMaxEntradaTest, CommandsAreDroppedWithoutASound) {
  for (const int code : {1, 2, 3, 6, 9, 20, 23, 24, 27})
    EXPECT_EQ(form_.TxtMaxEntrada.KeyRule(static_cast<char>(code)), KeyVerdict::kDrop) << code;
}

TEST_F(TxtMaxEntradaTest, AnythingElseBeeps) {
  station_.Type("a-");
  EXPECT_EQ(form_.TxtMaxEntrada.Text(), "1"_w);
  EXPECT_EQ(station_.Beeps(), 2);
}

TEST_F(TxtMaxEntradaTest, TheUnitIsChosenWithTheArrows) {
  form_.SetFocus(&form_.LstModEntrada);
  ASSERT_EQ(form_.LstModEntrada.ListIndex, 0);
  station_.Hands.Key(keys::kDown, 0);
  EXPECT_EQ(form_.LstModEntrada.ListIndex, 1);
  station_.Hands.Key(keys::kDown, 0);
  EXPECT_EQ(form_.LstModEntrada.ListIndex, 1);
}

TEST_F(TxtMaxEntradaTest, APassThatComesBackHasItShut) {
  station_.Hands.Key(keys::kEscape, 0);
  PutPass(1, test::Pase(0, 2));
  station_.Answers = {Answer::kNo};
  Scan(test::kCodigo);
  form_.SetFocus(nullptr);
  station_.Hands.Click(form_.TxtMaxEntrada);
  station_.Hands.Click(form_.LstModEntrada);
  EXPECT_EQ(form_.Focus(), nullptr);
  station_.Hands.ReplaceText(form_.TxtMaxEntrada, "99"_w);
  EXPECT_EQ(form_.TxtMaxEntrada.Text(), "2"_w);
  station_.Hands.Key(keys::kEscape, 0);
  EXPECT_TRUE(form_.TxtMaxEntrada.Enabled && form_.LstModEntrada.Enabled);
  EXPECT_FALSE(form_.TxtMaxEntrada.Visible || form_.LstModEntrada.Visible);
}

}  // namespace
}  // namespace vintoral
