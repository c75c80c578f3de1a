#include "records/RegistroTiquete.h"

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

/// A record whose size is these four bytes and whose flag is these two.
std::string With(std::string_view size, std::string_view foto) {
  return Blanks(100) + Hex(size) + Blanks(5000) + Hex(foto) + Blanks(5000);
}

TEST(RegistroTiquete, StandsInTqeAsWrittenByHand) {
  RegistroTiquete format;
  format.Impresora = "POS-80";
  format.DimFuente = 10.5F;  // 1.0101 × 2^3: sign 0, exponent 130, 41280000
  format.Encabezado = "        V I N T o r a l\r\n";
  format.Foto = true;
  format.Pie = "\r\nA\xD1O \x80";
  const std::string bytes = Field("POS-80", 100) + Hex("00 00 28 41") +
                            Field("        V I N T o r a l\r\n", 5000) + Hex("FF FF") +
                            Field("\r\nA\xD1O \x80", 5000);
  EXPECT_EQ(bytes.size(), 10106U);
  EXPECT_EQ(Encoded(format), bytes);
  EXPECT_EQ(Decoded<RegistroTiquete>(bytes), format);
}

TEST(RegistroTiquete, BlankIsBlanksAndZeros) {
  EXPECT_EQ(Encoded(RegistroTiquete{}), Blanks(100) + Zeros(4) + Blanks(5000) + Zeros(2) + Blanks(5000));
}

TEST(RegistroTiquete, CutsWhatIsLongerThanItsField) {
  RegistroTiquete format;
  format.Impresora = std::string(101, 'i');
  format.Encabezado = std::string(4999, 'e') + "12";
  format.Pie = std::string(4999, 'p') + "12";
  EXPECT_EQ(Encoded(format), std::string(100, 'i') + Zeros(4) + std::string(4999, 'e') + "1" + Zeros(2) +
                                 std::string(4999, 'p') + "1");
}

TEST(RegistroTiquete, AnyNumberButZeroIsTrue) {
  EXPECT_TRUE(Decoded<RegistroTiquete>(With("00 00 28 41", "01 00")).Foto);
  EXPECT_TRUE(Decoded<RegistroTiquete>(With("00 00 28 41", "00 80")).Foto);
  EXPECT_FALSE(Decoded<RegistroTiquete>(With("00 00 28 41", "00 00")).Foto);
}

TEST(RegistroTiquete, ASizeThatIsNoNumberKeepsItsBits) {
  // Quiet with a payload, and signalling.
  for (const std::string_view size : {"DE AD C0 FF", "01 00 80 7F"}) {
    const std::string bytes = With(size, "00 00");
    EXPECT_EQ(Encoded(Decoded<RegistroTiquete>(bytes)), bytes) << size;
  }
}

TEST(RegistroTiquete, SizesOfADamagedFilePrintAsTheDefault) {
  const auto size = [](std::string_view bytes) {
    return TamanoFuente(Decoded<RegistroTiquete>(With(bytes, "00 00")).DimFuente);
  };
  EXPECT_EQ(size("00 00 00 41"), 8.0);   // 41000000
  EXPECT_EQ(size("00 00 C0 7F"), 10.5);  // not a number
  EXPECT_EQ(size("00 00 C0 FF"), 10.5);  // not a number, negative
  EXPECT_EQ(size("00 00 80 7F"), 10.5);  // infinite
  EXPECT_EQ(size("00 00 80 FF"), 10.5);  // infinite, negative
  EXPECT_EQ(size("00 00 80 BF"), 10.5);  // -1
  EXPECT_EQ(size("00 00 00 80"), 10.5);  // -0
  EXPECT_EQ(size("CA F2 49 71"), 10.5);  // 1e30
  EXPECT_EQ(size("00 00 00 00"), 10.5);
  EXPECT_EQ(size("00 00 28 C1"), 10.5);  // -10.5
}

TEST(RegistroTiquete, ATornFileWhoseRestIsZerosStillReads) {
  const std::string bytes = Field("POS-80", 100) + Hex("00 00 28") + Zeros(10003);
  const auto format = Decoded<RegistroTiquete>(bytes);
  EXPECT_EQ(Encoded(format), bytes);
  EXPECT_EQ(format.Impresora.Trimmed(), "POS-80"_w);
  EXPECT_EQ(TamanoFuente(format.DimFuente), 10.5);  // 00280000 is some 10^-39 of a point
}

}  // namespace
}  // namespace vintoral
