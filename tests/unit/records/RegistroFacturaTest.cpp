#include "records/RegistroFactura.h"

#include <gtest/gtest.h>

#include "station/form1/Papel.h"
#include "support/Bytes.h"

namespace vintoral {
namespace {

using test::Blanks;
using test::Decoded;
using test::Encoded;
using test::Hex;
using test::Zeros;

/// `text` padded with blanks, as a field holds it.
std::string Field(std::string text, std::size_t width) {
  text.resize(width, ' ');
  return text;
}

/// A blank format with these bytes from its prefix to its flags.
RegistroFactura With(const std::string& prefix, std::string_view numbers) {
  return Decoded<RegistroFactura>(Blanks(100) + Hex("00 00 28 41") + Blanks(5000) + Field(prefix, 26) +
                                  Hex(numbers) + Blanks(5000));
}

TEST(RegistroFactura, StandsInFtaAsWrittenByHand) {
  RegistroFactura format;
  format.Impresora = "POS-80";
  format.DimFuente = 8.5F;  // 1.0625 × 2^3: 41080000
  format.Encabezado = "    EXIJA SIEMPRE SU FACTURA\r\n";
  format.Prefijo = "No.FACTURA  \x1B";
  format.NumFactura = 999999;     // 000F423F
  format.Impuesto = 19;           // 1.1875 × 2^4: 41980000
  format.ImpuestoExtras = 0.25F;  // 1 × 2^-2: 3E800000
  format.Copia = true;
  format.Puntos = false;
  format.Pie = "GRACIAS";
  const std::string bytes = Field("POS-80", 100) + Hex("00 00 08 41") +
                            Field("    EXIJA SIEMPRE SU FACTURA\r\n", 5000) +
                            "No.FACTURA  \x1B             " + Hex("3F 42 0F 00") + Hex("00 00 98 41") +
                            Hex("00 00 80 3E") + Hex("FF FF") + Hex("00 00") + Field("GRACIAS", 5000);
  EXPECT_EQ(bytes.size(), 10146U);
  EXPECT_EQ(Encoded(format), bytes);
  EXPECT_EQ(Decoded<RegistroFactura>(bytes), format);
}

TEST(RegistroFactura, KeepsItsTwoFlagsApart) {
  RegistroFactura points;
  points.Puntos = true;
  EXPECT_EQ(Encoded(points).substr(5142, 4), Hex("00 00 FF FF"));
  const RegistroFactura copy = With("", "00 00 00 00  00 00 00 00  00 00 00 00  02 00 00 00");
  EXPECT_TRUE(copy.Copia);
  EXPECT_FALSE(copy.Puntos);
}

TEST(RegistroFactura, BlankIsBlanksAndZeros) {
  EXPECT_EQ(Encoded(RegistroFactura{}),
            Blanks(100) + Zeros(4) + Blanks(5000) + Blanks(26) + Zeros(16) + Blanks(5000));
}

TEST(RegistroFactura, HoldsAPrefixOfTwentyFiveAndItsEnd) {
  RegistroFactura format;
  format.Prefijo = std::string(25, 'p') + "\x1B";
  EXPECT_EQ(Encoded(format).substr(5104, 26), std::string(25, 'p') + "\x1B");
  EXPECT_EQ(PrefijoDe(format), String(25, 'p'));
}

TEST(RegistroFactura, ScrambledBytesComeBackAsTheyWere) {
  std::string bytes(RegistroFactura::kSize, '\0');
  for (std::size_t i = 0; i < bytes.size(); ++i)
    bytes[i] = static_cast<char>(static_cast<unsigned char>(i * 151 + i / 256));
  bytes.replace(5130, 16, Hex("FF FF FF FF  01 00 80 7F  00 00 C0 FF  FF FF 00 00"));
  EXPECT_EQ(Encoded(Decoded<RegistroFactura>(bytes)), bytes);
}

TEST(RegistroFactura, ANumberBelowZeroReadsAsItStands) {
  EXPECT_EQ(With("", "FE FF FF FF  00 00 00 00  00 00 00 00  00 00 00 00").NumFactura, -2);
  EXPECT_EQ(With("", "00 00 00 80  00 00 00 00  00 00 00 00  00 00 00 00").NumFactura, -2147483647 - 1);
}

TEST(RegistroFactura, TaxesOfADamagedFileAreNoneOrAllThereIs) {
  const auto stays = [](std::string_view tax) {
    return Porcentaje(With("", "00 00 00 00 " + std::string(tax) + " 00 00 00 00 00 00 00 00").Impuesto);
  };
  EXPECT_EQ(stays("00 00 98 41"), 19);   // 41980000
  EXPECT_EQ(stays("00 00 C0 7F"), 0);    // not a number
  EXPECT_EQ(stays("00 00 C0 FF"), 0);    // not a number, negative
  EXPECT_EQ(stays("00 00 80 FF"), 0);    // infinite, negative
  EXPECT_EQ(stays("00 00 98 C1"), 0);    // -19
  EXPECT_EQ(stays("00 00 80 7F"), 100);  // infinite
  EXPECT_EQ(stays("CA F2 49 71"), 100);  // 1e30
  const float extras = With("", "00 00 00 00  00 00 00 00  CA F2 49 F1  00 00 00 00").ImpuestoExtras;
  EXPECT_EQ(Porcentaje(extras), 0);  // -1e30
}

TEST(RegistroFactura, APrefixWithoutItsEndIsTheFieldWithoutItsBlanks) {
  constexpr std::string_view kZeros = "00 00 00 00  00 00 00 00  00 00 00 00  00 00 00 00";
  EXPECT_EQ(PrefijoDe(With("AB  ", kZeros)), "AB"_w);
  EXPECT_EQ(PrefijoDe(With("", kZeros)), ""_w);
  EXPECT_EQ(PrefijoDe(With(std::string(26, 'x'), kZeros)), String(26, 'x'));
}

}  // namespace
}  // namespace vintoral
