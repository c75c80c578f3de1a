// What is typed under the pointer, and what a redraw does there.
#include <gmock/gmock.h>

#include "unit/network/PunteroFixture.h"

namespace vintoral {
namespace {

using test::PunteroTest;

TEST_F(PunteroTest, WhatIsTypedUnderAnIdlePointerIsNotLost) {
  Fill(1);
  Station.Type("1");
  Hover(0);
  Station.Type("2");
  EXPECT_TRUE(EntryFace());
  EXPECT_EQ(Form.TxtCampo[0].Text(), "12"_w);
}

TEST_F(PunteroTest, TheFieldThatWasTypedInTakesTheNextCharacter) {
  Fill(1);
  Form.SetFocus(&Form.TxtCampo[4]);
  Station.Type("55");
  Hover(0);
  Station.Type("6");
  EXPECT_TRUE(EntryFace());
  EXPECT_EQ(Form.TxtCampo[4].Text(), "556"_w);
  EXPECT_EQ(Form.Focus(), &Form.TxtCampo[4]);
  Hover(0);
  Station.Type("\b");
  EXPECT_TRUE(EntryFace());
  EXPECT_EQ(Form.TxtCampo[4].Text(), "55"_w);
}

TEST_F(PunteroTest, EnterUnderAnIdlePointerIsNotLostEither) {
  Fill(2);
  Station.Type("2");
  Hover(0);
  Station.Type("\r");
  EXPECT_TRUE(Form.FichaEnPantalla());
  EXPECT_EQ(Form.LblCampo[0].Caption, "0002"_w);
}

TEST_F(PunteroTest, EscapeAndOtherSignsBringNothingBack) {
  Fill(1);
  Hover(0);
  Station.Type("\x03");
  EXPECT_TRUE(RecordFace());
}

TEST_F(PunteroTest, EnterInTheToolBarStaysThere) {
  Form.SetFocus(nullptr);
  Station.Type("\r");
  EXPECT_EQ(Form.Focus(), nullptr);
}

TEST_F(PunteroTest, MinutesAreTypedUnderThePointerToo) {
  Fill(1);
  Press(boton::kTiempoDePermanencia);
  Form.SetFocus(&Form.CboMinutos);
  Hover(0);
  Station.Type("4");
  EXPECT_EQ(Form.CboMinutos.Text(), "4"_w);
  EXPECT_EQ(Form.PctFicha.Tag, "1"_w);
}

TEST_F(PunteroTest, TypingInTheToolBarGoesToTheNumber) {
  Form.SetFocus(nullptr);
  Station.Type("7");
  EXPECT_EQ(Form.TxtCampo[0].Text(), "7"_w);
}

TEST_F(PunteroTest, TheGridIsReachedByTabAndLeftByIt) {
  Fill(1);
  Form.SetFocus(&Form.FraFicha);
  ASSERT_EQ(Form.Focus(), &Form.FraFicha);
  Hover(0);
  ASSERT_TRUE(RecordFace());
  EXPECT_EQ(Form.Focus(), &Form.FraFicha);
  Station.Hands.Key(keys::kTab, 0);
  EXPECT_TRUE(EntryFace());
  EXPECT_EQ(Form.Focus(), &Form.TxtCampo[0]);
  Form.SetFocus(&Form.FraFicha);
  Hover(0);
  Station.Type("5");
  EXPECT_EQ(Form.TxtCampo[0].Text(), "5"_w);
}

TEST_F(PunteroTest, TabFromAFieldThatIsHiddenBringsItBackAndGoesOn) {
  Fill(1);
  Hover(0);
  Station.Hands.Key(keys::kTab, 0);
  EXPECT_TRUE(EntryFace());
  EXPECT_EQ(Form.Focus(), &Form.TxtCampo[1]);
}

TEST_F(PunteroTest, AFocusThatLeavesTheGridTakesThePointerAlong) {
  Fill(1);
  Form.SetFocus(&Form.FraFicha);
  Hover(0);
  Form.SetFocus(nullptr);
  EXPECT_TRUE(EntryFace());
}

// ---- The view changes under the pointer
// -----------------------------------------------------------------------

TEST_F(PunteroTest, ARecordRetiredAtAnotherGateGivesWayToTheNext) {
  Fill(3);
  Hover(1);
  Free(2);
  Form.RefrescarVista();
  EXPECT_TRUE(RecordFace());
  EXPECT_EQ(Form.PctFicha.Tag, "2"_w);
  EXPECT_EQ(Form.LblCampo[0].Caption, "0003"_w);
  EXPECT_EQ(Form.ShpCelda.Cell, 1);
  EXPECT_TRUE(Form.ShpCelda.Visible);
}

TEST_F(PunteroTest, ARedrawLeavesWhatIsTypedMeanwhileAlone) {
  Fill(2);
  Press(boton::kTiempoDePermanencia);
  Hover(1);
  Form.SetFocus(&Form.CboMinutos);
  Station.Type("4");
  Form.RefrescarVista();
  EXPECT_EQ(Form.CboMinutos.Text(), "4"_w);
  Free(2);
  Form.RefrescarVista();  // and the pointer's record has gone
  EXPECT_TRUE(EntryFace());
  EXPECT_EQ(Form.Focus(), &Form.CboMinutos);
  EXPECT_EQ(Form.CboMinutos.Text(), "4"_w);
}

TEST_F(PunteroTest, WithoutANextOneTheFaceOfEntryComesBack) {
  Fill(2);
  Hover(1);
  Free(2);
  Form.RefrescarVista();
  EXPECT_TRUE(EntryFace());
  EXPECT_EQ(Form.PctFicha.Tag, "0"_w);
  EXPECT_FALSE(Form.ShpCelda.Visible);
}

TEST_F(PunteroTest, APageThatEmptiesUnderThePointerShowsTheOneBefore) {
  Fill(51);
  Press(boton::kAvanzar);
  Hover(0);
  ASSERT_EQ(Form.LblCampo[0].Caption, "0051"_w);
  Free(51);
  Form.RefrescarVista();
  EXPECT_EQ(Form.InicioPagina, 1);
  EXPECT_TRUE(RecordFace());
  EXPECT_EQ(Form.LblCampo[0].Caption, "0001"_w);
  EXPECT_EQ(Form.PctFicha.Tag, "1"_w);
}

TEST_F(PunteroTest, TurningThePageShowsTheRecordThatComesUnderThePointer) {
  Fill(60);
  Hover(3);
  Press(boton::kAvanzar);
  EXPECT_EQ(Form.LblCampo[0].Caption, "0054"_w);
  EXPECT_EQ(Form.PctFicha.Tag, "54"_w);
}

}  // namespace
}  // namespace vintoral
