// The next free number: which one, what the form looks like then, and what is said when there is none.
#include <gmock/gmock.h>

#include "unit/entry/CodigosFixture.h"

namespace vintoral {
namespace {

using test::CodigosTest;
using test::kAct;
using test::kCodigo;
using testing::Contains;
using testing::IsEmpty;
using testing::Not;

const String kGenerated = "Sonidos\\Vintoral-10.wav"_w;

/// A gate that prints tickets for physical numbers.
class GenerarFichaTest : public CodigosTest {
 protected:
  GenerarFichaTest() {
    form_.CambiarModoFicha();
    station_.Events.Take();
  }
  void Generate() { station_.Hands.Key(keys::kHome, 0); }
  void FillFrom(std::size_t first, std::size_t last) {
    RegistroFicha taken;
    taken.EnUso = true;
    for (std::size_t number = first; number <= last; ++number)
      PutRecord(station_.Disk, kAct, number, taken);
  }
};

TEST_F(GenerarFichaTest, TheFirstFreeNumberOpensItsForm) {
  FillFrom(1, 3);
  ASSERT_FALSE(form_.CmdBarCode.Visible);
  Generate();
  EXPECT_EQ(form_.TxtCampo[0].Text(), "4"_w);
  EXPECT_TRUE(form_.TxtCampo[0].Locked);
  EXPECT_TRUE(form_.PctBoton[boton::kGuardar].Visible);
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[1]);
  EXPECT_THAT(station_.Heard(), Contains(kGenerated));
}

TEST_F(GenerarFichaTest, AHoleIsFilledFirst) {
  FillFrom(1, 3);
  FillFrom(5, 9);
  Generate();
  EXPECT_EQ(form_.TxtCampo[0].Text(), "4"_w);
}

TEST_F(GenerarFichaTest, WithoutBarCodesThereIsNoCodeAndNoValidity) {
  Generate();
  ASSERT_EQ(form_.TxtCampo[0].Text(), "1"_w);
  EXPECT_TRUE(form_.TxtBarCode.Text().Empty());
  EXPECT_TRUE(form_.TxtMaxEntrada.Text().Empty());
  EXPECT_FALSE(form_.TxtBarCodeOK.Visible || form_.TxtMaxEntrada.Visible || form_.LstModEntrada.Visible);
}

TEST_F(GenerarFichaTest, AConnectedGateBeginsInItsOwnHalf) {
  form_.PrimerNumero = 501;
  Generate();
  EXPECT_EQ(form_.TxtCampo[0].Text(), "501"_w);
}

TEST_F(GenerarFichaTest, ItsLastNumberIsTakenToo) {
  form_.PrimerNumero = 501;
  FillFrom(501, 999);
  Generate();
  EXPECT_EQ(form_.TxtCampo[0].Text(), "1000"_w);
}

TEST_F(GenerarFichaTest, TheLimitIsTheEndOfItsOwnHalf) {
  form_.PrimerNumero = 501;
  FillFrom(501, 1000);
  station_.Answers = {Answer::kOk};
  form_.SetFocus(&form_.TxtCampo[2]);
  Generate();
  ASSERT_EQ(station_.Boxes.size(), 1u);
  EXPECT_EQ(station_.Boxes[0].title, "Vintoral - Generador Automático de Fichas"_w);
  EXPECT_EQ(station_.Boxes[0].text,
            "Se ha alcanzado el límite de fichas entregadas por esta portería. "
            "Por favor vuelva a intentarlo más tarde."_w);
  EXPECT_EQ(station_.Boxes[0].icon, Icon::kExclamation);
  EXPECT_THAT(station_.Boxes[0].buttons, testing::ElementsAre(Answer::kOk));
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[0]);
  EXPECT_TRUE(form_.TxtCampo[0].Text().Empty());
  EXPECT_FALSE(form_.FichaEnCurso());
  EXPECT_THAT(station_.Heard(), Not(Contains(kGenerated)));
}

TEST_F(GenerarFichaTest, TheMainGateGoesThroughBothHalves) {
  FillFrom(1, 999);
  Generate();
  EXPECT_EQ(form_.TxtCampo[0].Text(), "1000"_w);
}

TEST_F(GenerarFichaTest, SlotsThatWereCutOffAreFree) {
  form_.PrimerNumero = 501;
  const std::string act = station_.Disk.Get(kAct);
  station_.Disk.Put(kAct, act.substr(0, 300 * RegistroFicha::kSize));
  Generate();
  EXPECT_EQ(form_.TxtCampo[0].Text(), "501"_w);
  station_.Hands.Key(keys::kEscape, 0);
  FillFrom(501, 502);
  Generate();
  EXPECT_EQ(form_.TxtCampo[0].Text(), "503"_w);
  EXPECT_THAT(station_.Boxes, IsEmpty());
}

TEST_F(GenerarFichaTest, WithoutTicketsHomeIsLeftToTheField) {
  form_.PctBoton[boton::kTiquetes].BorderStyle = 0;
  station_.Type("12");
  EXPECT_FALSE(form_.Form_KeyDown(keys::kHome, 0));
  Generate();
  EXPECT_EQ(form_.TxtCampo[0].Text(), "12"_w);
  EXPECT_EQ(form_.TxtCampo[0].SelStart, 0u);
  EXPECT_FALSE(form_.FichaEnCurso());
  EXPECT_EQ(station_.Beeps(), 0);
}

TEST_F(GenerarFichaTest, AFormThatIsOpenKeepsItsNumber) {
  FillFrom(1, 3);
  station_.TypeNew("7", "abc123");
  station_.Events.Take();
  Generate();
  form_.GenerarFicha();
  EXPECT_EQ(form_.TxtCampo[0].Text(), "7"_w);
  EXPECT_EQ(form_.TxtCampo[1].Text(), "ABC123"_w);
  EXPECT_TRUE(station_.Events.Take().empty());
}

TEST_F(GenerarFichaTest, WithoutTheRegisterNothingHappens) {
  ASSERT_TRUE(station_.Disk.Remove(kAct));
  Generate();
  EXPECT_TRUE(form_.TxtCampo[0].Text().Empty());
  EXPECT_THAT(station_.Boxes, IsEmpty());
  EXPECT_THAT(station_.Heard(), IsEmpty());
}

TEST_F(GenerarFichaTest, ARegisterThatCantBeReadIsNotAFullOne) {
  ASSERT_EQ(form_.TmrConexion.Interval(), 10'000);
  station_.Faulty.Set().failRead = 1;
  Generate();
  EXPECT_EQ(form_.TmrConexion.Interval(), 100);
  EXPECT_THAT(station_.Boxes, IsEmpty());
  EXPECT_FALSE(form_.FichaEnCurso());
}

TEST_F(GenerarFichaTest, ASlotThatCantBeOpenedGetsNoCode) {
  form_.CambiarModoFicha();
  ASSERT_TRUE(form_.TxtBarCode.Visible);
  station_.Events.Take();
  station_.Faulty.Set().failRead = 2;  // the search, then the slot
  Generate();
  EXPECT_FALSE(form_.FichaEnCurso());
  EXPECT_TRUE(form_.TxtBarCode.Text().Empty());
  EXPECT_THAT(station_.Heard(), Not(Contains(kGenerated)));
}

}  // namespace
}  // namespace vintoral
