// The count of the view, and its page.
#include <gtest/gtest.h>

#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::MemoryStation;

TEST(ImprimirIndice, CountsFichasAndPagesOfFifty) {
  MemoryStation station;
  Form1& form = station.Form;
  for (const auto& [fichas, first, text] : {std::tuple{0u, 1, "0 ( 1/1 )  "},
                                            {1u, 1, "1 ( 1/1 )  "},
                                            {50u, 1, "50 ( 1/1 )  "},
                                            {51u, 1, "51 ( 1/2 )  "},
                                            {51u, 51, "51 ( 2/2 )  "},
                                            {100u, 51, "100 ( 2/2 )  "},
                                            {101u, 101, "101 ( 3/3 )  "}}) {
    form.VistaFichas.resize(fichas);
    form.InicioPagina = first;
    form.ImprimirIndice();
    EXPECT_EQ(form.LblInfo[0].Caption.Bytes(), text);
  }
}

TEST(ImprimirIndice, ClearsTheCellsFirst) {
  MemoryStation station;
  station.Form.ImgFicha[49].Visible = true;
  station.Form.ImprimirIndice();
  EXPECT_FALSE(station.Form.ImgFicha[49].Visible);
}

TEST(RefrescarVista, ReadsTheRegisterAndShowsItsCount) {
  MemoryStation station;
  station.StartConnected();
  station.Enter("7", "abc");
  station.Form.VistaFichas.clear();
  station.Form.LblInfo[0].Caption = {};
  station.Form.RefrescarVista();
  EXPECT_EQ(station.Form.TotalVista(), 1);
  EXPECT_EQ(station.Form.LblInfo[0].Caption, "1 ( 1/1 )  "_w);
}

}  // namespace
}  // namespace vintoral
