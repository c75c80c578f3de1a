#include "records/RegistroCodigo.h"

#include <gtest/gtest.h>

#include "support/Bytes.h"

namespace vintoral {
namespace {

using test::Blanks;
using test::Decoded;
using test::Encoded;
using test::Zeros;

TEST(RegistroCodigo, StandsInCdbAsWrittenByHand) {
  RegistroCodigo codigo;
  codigo.CodigoBarras = "A1B2C3D4E5F6";
  codigo.FichaCodigo = "0512";
  const std::string bytes = "A1B2C3D4E5F6" + Blanks(38) + "0512";
  EXPECT_EQ(bytes.size(), 54u);
  EXPECT_EQ(Encoded(codigo), bytes);
  EXPECT_EQ(Decoded<RegistroCodigo>(bytes), codigo);
}

TEST(RegistroCodigo, BlankIsBlanks) {
  EXPECT_EQ(Encoded(RegistroCodigo{}), Blanks(54));
}

TEST(RegistroCodigo, KeepsBytesThatAreNoText) {
  const std::string bytes = std::string(49, '\xFF') + "X" + Zeros(4);
  const auto codigo = Decoded<RegistroCodigo>(bytes);
  EXPECT_EQ(Encoded(codigo), bytes);
  EXPECT_EQ(codigo.CodigoBarras.View().back(), 'X');
  EXPECT_EQ(codigo.FichaCodigo.Trimmed(), String(4, '\0'));
}

}  // namespace
}  // namespace vintoral
