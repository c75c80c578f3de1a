#include "records/RegistroUsuario.h"

#include <gtest/gtest.h>

#include "support/Bytes.h"

namespace vintoral {
namespace {

using test::Blanks;
using test::Decoded;
using test::Encoded;
using test::Hex;
using test::Zeros;

TEST(RegistroUsuario, StandsInUsrAsWrittenByHand) {
  RegistroUsuario user;
  user.Placa = "XYZ987";
  user.Nombre = "ANA";
  user.Apellido = "\xC1LVAREZ";
  user.Telefono = "3001234567";
  user.Observacion = "MENSUAL";
  user.Categoria = "ACCESO MES AUTO";
  user.Puntos = -300;  // FFFFFED4
  const std::string bytes =
      "XYZ987              "
      "ANA                 "
      "\xC1LVAREZ             "
      "3001234567          "
      "MENSUAL             "
      "ACCESO MES AUTO     " +
      Hex("D4 FE FF FF");
  EXPECT_EQ(bytes.size(), 124u);
  EXPECT_EQ(Encoded(user), bytes);
  EXPECT_EQ(Decoded<RegistroUsuario>(bytes), user);
}

TEST(RegistroUsuario, BlankIsBlanksAndZero) {
  EXPECT_EQ(Encoded(RegistroUsuario{}), Blanks(120) + Zeros(4));
}

TEST(RegistroUsuario, KeepsBytesThatAreNoText) {
  std::string bytes = Zeros(20) + std::string(100, '\xFF') + Hex("01 02 03 04");
  EXPECT_EQ(Encoded(Decoded<RegistroUsuario>(bytes)), bytes);
  EXPECT_EQ(Decoded<RegistroUsuario>(bytes).Puntos, 0x04030201);
  EXPECT_EQ(Decoded<RegistroUsuario>(bytes).Placa.Trimmed(), String(20, '\0'));
}

}  // namespace
}  // namespace vintoral
