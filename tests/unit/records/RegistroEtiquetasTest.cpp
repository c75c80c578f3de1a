#include "records/RegistroEtiquetas.h"

#include <gtest/gtest.h>

#include "support/Bytes.h"

namespace vintoral {
namespace {

using test::Blanks;
using test::Decoded;
using test::Encoded;
using test::Hex;

TEST(RegistroEtiquetas, StandsInLblAsWrittenByHand) {
  RegistroEtiquetas labels;
  labels.Etiqueta[0] = "FICHA";
  labels.Etiqueta[1] = "PLACA/DOCUMENTO";
  labels.Etiqueta[2] = "NOMBRE";
  labels.Etiqueta[3] = "APELLIDO";
  labels.Etiqueta[4] =
      "TEL\xC9"
      "FONO";
  labels.Etiqueta[5] = "OBSERVACIONES";
  labels.MemoriaRostros = -1;
  labels.ImprimirCampo = {true, false, true, false, false};
  const std::string bytes =
      "FICHA               "
      "PLACA/DOCUMENTO     "
      "NOMBRE              "
      "APELLIDO            "
      "TEL\xC9"
      "FONO            "
      "OBSERVACIONES       " +
      Hex("FF FF  FF FF 00 00 FF FF 00 00 00 00");
  EXPECT_EQ(bytes.size(), 132u);
  EXPECT_EQ(Encoded(labels), bytes);
  EXPECT_EQ(Decoded<RegistroEtiquetas>(bytes), labels);
}

TEST(RegistroEtiquetas, WithoutFileTheFacesAreOffAndAllFieldsPrint) {
  EXPECT_EQ(Encoded(RegistroEtiquetas{}), Blanks(120) + Hex("00 00 FF FF FF FF FF FF FF FF FF FF"));
}

TEST(RegistroEtiquetas, AnyPrintFlagButZeroIsTrue) {
  const auto labels = Decoded<RegistroEtiquetas>(Blanks(120) + Hex("01 00 00 00 00 80 02 00 00 00 00 01"));
  EXPECT_EQ(labels.MemoriaRostros, 1);
  EXPECT_EQ(labels.ImprimirCampo, (std::array{false, true, true, false, true}));
}

}  // namespace
}  // namespace vintoral
