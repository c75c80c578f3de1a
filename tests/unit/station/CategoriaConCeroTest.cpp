// A category whose name ends in a zero byte, as a damaged tariff file may hold one, on its whole way.
#include <gtest/gtest.h>

#include "records/RegistroUsuario.h"
#include "support/Bytes.h"
#include "support/MemoryStation.h"
#include "tariffs/Tablas.h"

namespace vintoral {
namespace {

using test::Encoded;
using test::MemoryStation;

const String kPlain = "AUTO"_w;
const String kZero(std::string_view("AUTO\0", 5));

class CategoriaConCero : public testing::Test {
 protected:
  CategoriaConCero() {
    station_.Disk.Put("Recursos\\Vintoral.EMP",
                      CodificarLineas({kPlain, "0M = 100"_w, " "_w, kZero, "0M = 900"_w}));
  }
  /// Saves the ficha that is typed as number 7, and calls it up again.
  void SaveAndCallUp() {
    station_.Answers = {Answer::kYes};
    station_.Hands.Key(keys::kInsert, 0);
    ASSERT_TRUE(station_.Slot(7).EnUso);
    station_.TypeAndEnter("7");
    ASSERT_TRUE(station_.Form.FichaEnPantalla());
  }
  MemoryStation station_;
};

TEST_F(CategoriaConCero, IsChosenStoredAndPriced) {
  station_.StartConnected();
  ASSERT_EQ(station_.Form.CboTarifa[1].List(), (std::vector{kPlain, kZero}));
  station_.TypeNew("7", "abc");
  ASSERT_EQ(station_.Form.CboTarifa[1].Text(), kPlain);
  station_.Form.CboTarifa[1].Select(1);
  SaveAndCallUp();
  EXPECT_EQ(station_.Slot(7).Categoria.View(), kZero.Bytes() + test::Blanks(15));
  EXPECT_EQ(station_.Form.CboTarifa[0].Text(), kZero);
  EXPECT_EQ(station_.Form.ValorEstadia, Money::FromUnits(900));
}

TEST_F(CategoriaConCero, OfAUserIsFoundInTheList) {
  RegistroUsuario user;
  user.Placa = "ABC";
  user.Categoria = kZero;
  station_.Disk.Put("Multimedia\\Vintoral.USR", Encoded(user));
  station_.StartConnected();
  station_.TypeNew("7", "abc");
  EXPECT_EQ(station_.Form.CboTarifa[1].Text(), kZero);
  SaveAndCallUp();
  EXPECT_EQ(station_.Form.ValorEstadia, Money::FromUnits(900));
}

}  // namespace
}  // namespace vintoral
