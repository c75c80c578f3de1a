#include "records/RegistroFicha.h"

#include <gtest/gtest.h>

#include <random>

#include "support/Bytes.h"

namespace vintoral {
namespace {

using test::Blanks;
using test::Decoded;
using test::Encoded;
using test::Hex;
using test::Zeros;

/// A ficha inside, as it stands in ACT.
RegistroFicha Inside() {
  RegistroFicha ficha;
  ficha.EnUso = true;
  ficha.MarcaEntrada = "14:05  (03/09/2021)";
  ficha.MarcaSalida = "??";
  ficha.NumeroFicha = "0123";
  ficha.Placa = "ABC123";
  ficha.Nombre =
      "BEGO\xD1"
      "A";
  ficha.Apellido = "MU\xD1OZ";
  ficha.Telefono = "555-0100";
  ficha.Observacion = "ESPEJO ROTO";
  ficha.Categoria = "AUTOMOVIL";
  ficha.PorteriaEntrada = "01";
  ficha.PorteriaSalida = "??";
  ficha.Posicion = 123;
  ficha.UsuarioPuntos = 70000;
  return ficha;
}

const std::string kInside = Hex("FF FF") +          // EnUso
                            "14:05  (03/09/2021) "  // MarcaEntrada
                            "??                  "  // MarcaSalida
                            "0123"                  // NumeroFicha
                            "ABC123              "  // Placa
                            "BEGO\xD1"
                            "A              "                 // Nombre, Ñ is D1
                            "MU\xD1OZ               "         // Apellido
                            "555-0100            "            // Telefono
                            "ESPEJO ROTO         "            // Observacion
                            "AUTOMOVIL           "            // Categoria
                            "01"                              // PorteriaEntrada
                            "??" +                            // PorteriaSalida
                            Hex("7B 00 00 00") +              // Posicion 123
                            Hex("00 00 00 00 00 00 00 00") +  // ValorCobrado
                            Hex("00 00") +                    // InicioTurno
                            Hex("70 11 01 00");               // UsuarioPuntos 70000

TEST(RegistroFicha, StandsInActAsWrittenByHand) {
  EXPECT_EQ(kInside.size(), 188u);
  EXPECT_EQ(Encoded(Inside()), kInside);
  EXPECT_EQ(Decoded<RegistroFicha>(kInside), Inside());
}

TEST(RegistroFicha, BlankIsBlanksAndZeros) {
  EXPECT_EQ(Encoded(RegistroFicha{}), Zeros(2) + Blanks(168) + Zeros(18));
}

TEST(RegistroFicha, MoneyIsTenThousandthsInEightBytes) {
  RegistroFicha ficha;
  ficha.ValorCobrado = Money::FromUnits(15000);  // 150,000,000 is 08F0D180
  EXPECT_EQ(Encoded(ficha).substr(174, 8), Hex("80 D1 F0 08 00 00 00 00"));
  ficha.ValorCobrado = Money::FromRaw(-25000);  // -2.5
  EXPECT_EQ(Encoded(ficha).substr(174, 8), Hex("58 9E FF FF FF FF FF FF"));
  EXPECT_EQ(Decoded<RegistroFicha>(Encoded(ficha)).ValorCobrado.Raw(), -25000);
}

TEST(RegistroFicha, NumbersKeepTheirSign) {
  const std::string bytes =
      Zeros(2) + Blanks(168) + Hex("FE FF FF FF") + Zeros(8) + Zeros(2) + Hex("00 00 00 80");
  const auto ficha = Decoded<RegistroFicha>(bytes);
  EXPECT_EQ(ficha.Posicion, -2);
  EXPECT_EQ(ficha.UsuarioPuntos, -2147483647 - 1);
  EXPECT_EQ(Encoded(ficha), bytes);
}

TEST(RegistroFicha, ShiftMarkIsItsOwnBoolean) {
  RegistroFicha ficha;
  ficha.InicioTurno = true;
  EXPECT_EQ(Encoded(ficha), Zeros(2) + Blanks(168) + Zeros(12) + Hex("FF FF") + Zeros(4));
}

TEST(RegistroFicha, AnyNumberButZeroIsTrue) {
  for (const char* stored : {"01 00", "00 80", "00 01", "FF FF"}) {
    const auto ficha = Decoded<RegistroFicha>(Hex(stored) + Blanks(168) + Zeros(18));
    EXPECT_TRUE(ficha.EnUso) << stored;
    EXPECT_EQ(Encoded(ficha).substr(0, 2), Hex("FF FF")) << stored;
  }
  EXPECT_FALSE(Decoded<RegistroFicha>(Zeros(2) + Blanks(168) + Zeros(18)).EnUso);
}

TEST(RegistroFicha, ValueOf21CharactersLosesItsLast) {
  RegistroFicha ficha;
  ficha.Nombre = "ABCDEFGHIJKLMNOPQRSTU";
  EXPECT_EQ(Encoded(ficha).substr(66, 40), "ABCDEFGHIJKLMNOPQRST" + Blanks(20));
}

TEST(RegistroFicha, ShorterValueLeavesNothingOfTheOldOne) {
  RegistroFicha ficha;
  ficha.Placa = "ABCDEFGHIJ";
  ficha.Placa = "XY";
  EXPECT_EQ(Encoded(ficha).substr(46, 20), "XY" + Blanks(18));
}

TEST(RegistroFicha, ScrambledBytesKeepAllButTheFormOfBooleans) {
  std::mt19937 random(1);
  for (int round = 0; round < 2000; ++round) {
    std::string bytes(188, '\0');
    for (char& byte : bytes)
      byte = static_cast<char>(random() & 0xFF);
    const auto ficha = Decoded<RegistroFicha>(bytes);
    const std::string again = Encoded(ficha);
    EXPECT_EQ(again.substr(2, 180), bytes.substr(2, 180));
    EXPECT_EQ(again.substr(184), bytes.substr(184));
    EXPECT_EQ(Decoded<RegistroFicha>(again), ficha);
  }
}

}  // namespace
}  // namespace vintoral
