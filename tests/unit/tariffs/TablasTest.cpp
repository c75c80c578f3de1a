#include "tariffs/Tablas.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vintoral {
namespace {

using testing::ElementsAre;

String Record(std::string_view text) {
  String record(text);
  record += String(kAnchoLinea - text.size(), ' ');
  return record;
}

TEST(Lineas, AreBlankPaddedRecordsOfAHundredBytes) {
  const std::string bytes = CodificarLineas({" AUTOMOVIL"_w, " "_w, ""_w}).Bytes();
  ASSERT_EQ(bytes.size(), 300U);
  EXPECT_EQ(bytes, " AUTOMOVIL" + std::string(290, ' '));
}

TEST(Lineas, AreCutAtTheEndOfTheRecord) {
  const std::string exact(100, 'a');
  const std::string longer = exact + "bc";
  EXPECT_EQ(CodificarLineas({String(longer), "d"_w}).Bytes(), exact + "d" + std::string(99, ' '));
  EXPECT_EQ(CodificarLineas({String(exact)}).Bytes(), exact);
}

TEST(Lineas, OfNoLinesIsAnEmptyFile) {
  EXPECT_EQ(CodificarLineas({}), String());
  EXPECT_TRUE(DecodificarLineas("").empty());
}

TEST(Lineas, KeepTheirBlanksWhenRead) {
  const std::string bytes = Record(" Uno").Bytes() + Record("").Bytes() + Record("dos  ").Bytes();
  EXPECT_THAT(DecodificarLineas(bytes), ElementsAre(Record(" Uno"), Record(""), Record("dos")));
}

TEST(Lineas, ATornRecordIsPassedOver) {
  const std::string whole = Record("UNO").Bytes();
  EXPECT_TRUE(DecodificarLineas(whole.substr(0, 99)).empty());
  EXPECT_THAT(DecodificarLineas(whole + "DOS"), ElementsAre(Record("UNO")));
  EXPECT_THAT(DecodificarLineas(whole + whole.substr(0, 99)), ElementsAre(Record("UNO")));
}

TEST(LineaTarifa, IsTrimmedCutAndRaised) {
  EXPECT_EQ(LineaTarifa(Record(" automovil")), "AUTOMOVIL"_w);
  EXPECT_EQ(LineaTarifa("   camión ñandú"_w), "CAMIÓN ÑANDÚ"_w);
  EXPECT_EQ(LineaTarifa(Record("")), ""_w);
}

TEST(LineaTarifa, IsTrimmedBeforeItIsCut) {
  EXPECT_EQ(LineaTarifa("     12345678901234567890ABC"), "12345678901234567890"_w);
  EXPECT_EQ(LineaTarifa("1234567890123456789 ABC"), "1234567890123456789 "_w);
}

TEST(LineaTarifa, LosesTheStarsOfALongLine) {
  EXPECT_EQ(LineaTarifa("1H = 30000          **"), "1H = 30000          "_w);
}

TEST(LineaTarifa, KeepsAZeroByte) {
  const std::string_view zeros("\0 1M\0", 5);
  EXPECT_EQ(LineaTarifa(zeros), String(zeros));
  EXPECT_EQ(LineaExtra(zeros), String(zeros));
}

TEST(LineaExtra, KeepsItsLength) {
  EXPECT_EQ(LineaExtra(Record("  minuto celular de larga distancia = 200")),
            "MINUTO CELULAR DE LARGA DISTANCIA = 200"_w);
}

TEST(EsCategoria, IsALineWithTextAndNoRule) {
  EXPECT_TRUE(EsCategoria("AUTOMOVIL"));
  EXPECT_TRUE(EsCategoria(Record(" VISITANTE")));
  EXPECT_FALSE(EsCategoria("1M = 100*"));
  EXPECT_FALSE(EsCategoria("="));
  EXPECT_FALSE(EsCategoria(""));
  EXPECT_FALSE(EsCategoria(Record("")));
}

TEST(EsCategoria, AZeroByteIsText) {
  EXPECT_TRUE(EsCategoria(Record(std::string_view("\0", 1))));
}

TEST(EsCategoria, SeesAnEqualsSignThatTheCutTakesAway) {
  const std::string_view line = "NOMBRE DE VEINTE LETRAS = 5";
  EXPECT_FALSE(EsCategoria(line));
  EXPECT_TRUE(EsCategoria(LineaTarifa(line)));
}

}  // namespace
}  // namespace vintoral
