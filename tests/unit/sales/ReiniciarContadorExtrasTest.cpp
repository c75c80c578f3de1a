// The reset of the list of sales: asked twice, and then the reports find it empty.
#include <gmock/gmock.h>

#include "station/form1/Sonidos.h"
#include "unit/sales/ExtrasFixture.h"

namespace vintoral {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class ReiniciarContadorExtrasTest : public test::ExtrasTest {
 protected:
  void Reset(std::deque<Answer> answers) {
    station_.Answers = std::move(answers);
    station_.Boxes.clear();
    station_.Events.Take();
    form_.ReiniciarContadorExtras();
    EXPECT_TRUE(station_.Answers.empty());
  }
};

TEST_F(ReiniciarContadorExtrasTest, ChangesTheTimeOfTheNewestLineAlone) {
  Sell(0);
  Sell(1, "3");
  // The byte left over, as another program may have left it.
  std::string before = List();
  before[45] = '\x7F';
  station_.Disk.Put(kExt, before);
  Reset({Answer::kYes, Answer::kYes});
  std::string expected = before;
  expected.replace(41, 2, "\xFF\xFF");  // 12 of the date, 19 of the name, 2 and 8
  EXPECT_EQ(List(), expected);
  EXPECT_EQ(Line(1), Sold("CAFE", 3, Money::FromUnits(5000), -1));
  EXPECT_THAT(station_.Heard(), ElementsAre("Sonidos\\Vintoral-8.wav"_w));
}

TEST_F(ReiniciarContadorExtrasTest, AsksTwiceAndPreselectsNo) {
  Sell(0);
  Reset({Answer::kYes, Answer::kYes});
  ASSERT_EQ(station_.Boxes.size(), 2u);
  const Box& first = station_.Boxes[0];
  EXPECT_EQ(first.title, "Vintoral - Reiniciar Extras"_w);
  EXPECT_EQ(first.text, "¿Desea realmente reiniciar el contador de extras?"_w);
  EXPECT_EQ(first.icon, Icon::kExclamation);
  EXPECT_THAT(first.buttons, ElementsAre(Answer::kYes, Answer::kNo));
  EXPECT_EQ(first.preselected, Answer::kNo);
  const Box& second = station_.Boxes[1];
  EXPECT_EQ(second.title, "Vintoral - ADVERTENCIA"_w);
  EXPECT_EQ(second.text, "Está a punto de reiniciar el contador de extras.\r\n¿Desea continuar?"_w);
  EXPECT_EQ(second.icon, Icon::kCritical);
  EXPECT_THAT(second.buttons, ElementsAre(Answer::kYes, Answer::kNo));
  EXPECT_EQ(second.preselected, Answer::kNo);
}

TEST_F(ReiniciarContadorExtrasTest, ANoLeavesAllAsItIs) {
  Sell(0);
  const std::string before = List();
  Reset({Answer::kNo});
  EXPECT_EQ(List(), before);
  EXPECT_THAT(station_.Heard(), IsEmpty());
  Reset({Answer::kYes, Answer::kNo});
  EXPECT_EQ(List(), before);
  EXPECT_THAT(station_.Heard(), IsEmpty());
}

TEST_F(ReiniciarContadorExtrasTest, WithoutAListNothingIsAsked) {
  Reset({});
  EXPECT_THAT(station_.Boxes, IsEmpty());
  EXPECT_EQ(List(), "(missing)");
}

TEST_F(ReiniciarContadorExtrasTest, AnEmptyFileStaysEmpty) {
  station_.Disk.Put(kExt, "");
  Reset({Answer::kYes, Answer::kYes});
  EXPECT_EQ(List(), "");
  EXPECT_THAT(station_.Heard(), Contains(String(sonido::kExtrasReiniciados)));
}

TEST_F(ReiniciarContadorExtrasTest, ABlankListIsClosedAlready) {
  const std::string blank = ListaExtrasEnBlanco().Bytes();
  station_.Disk.Put(kExt, blank);
  Reset({Answer::kYes, Answer::kYes});
  EXPECT_EQ(List(), blank);
}

TEST_F(ReiniciarContadorExtrasTest, WhatWasSoldMovesDownWithLaterSales) {
  Sell(0);
  Reset({Answer::kYes, Answer::kYes});
  Sell(1);
  EXPECT_EQ(Line(1), Sold("CAFE", 1, Money::FromUnits(5000)));
  EXPECT_EQ(Line(2), Sold("MINUTO", 1, Money::FromUnits(200), -1));
}

TEST_F(ReiniciarContadorExtrasTest, AListThatMayNotBeWrittenIsWrittenAllTheSame) {
  Sell(0);
  station_.Disk.SetReadOnly(kExt);
  Reset({Answer::kYes, Answer::kYes});
  EXPECT_EQ(Line(1).HoraVenta, -1);
}

TEST_F(ReiniciarContadorExtrasTest, IsHeardThoughItCouldNotBeWritten) {
  Sell(0);
  const std::string before = List();
  station_.UnderBox = [this] { station_.Faulty.Set().failAllWrites = true; };
  testing::internal::CaptureStderr();
  Reset({Answer::kYes, Answer::kYes});
  EXPECT_NE(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(List(), before);
  EXPECT_THAT(station_.Heard(), Contains(String(sonido::kExtrasReiniciados)));
}

TEST_F(ReiniciarContadorExtrasTest, IsSynced) {
  Sell(0);
  const int before = station_.Disk.Syncs();
  Reset({Answer::kYes, Answer::kYes});
  EXPECT_EQ(station_.Disk.Syncs(), before + 2) << "the list of the sale, then its new first line";
}

}  // namespace
}  // namespace vintoral
