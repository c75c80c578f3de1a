#include "tariffs/TextoTabla.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tariffs/Tablas.h"

namespace vintoral {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(TextoDeTabla, HasALineEndBetweenLinesAndNoneBehindTheLast) {
  EXPECT_EQ(TextoDeTabla({"AUTO"_w, "1H = 6000"_w}), "AUTO\r\n1H = 6000"_w);
  EXPECT_EQ(TextoDeTabla({"AUTO"_w}), "AUTO"_w);
  EXPECT_EQ(TextoDeTabla({}), ""_w);
}

TEST(TextoDeTabla, KeepsBlankLinesAndTheBlanksBeforeALine) {
  EXPECT_EQ(TextoDeTabla({""_w, " 120 = 1000   "_w, "   "_w, ""_w, "x"_w, ""_w}),
            "\r\n 120 = 1000\r\n\r\n\r\nx\r\n"_w);
}

TEST(TextoDeTabla, TakesOffBlanksAlone) {
  const String line(std::string_view("a \0 \t  ", 7));
  EXPECT_EQ(TextoDeTabla({line}), String(std::string_view("a \0 \t", 5)));
}

TEST(LineasDeTexto, ArePartedAtEachLineEnd) {
  EXPECT_THAT(LineasDeTexto("AUTO\r\n 1H = 6000 \r\n\r\nMOTO"),
              ElementsAre("AUTO"_w, " 1H = 6000 "_w, ""_w, "MOTO"_w));
  EXPECT_THAT(LineasDeTexto("AUTO"), ElementsAre("AUTO"_w));
}

TEST(LineasDeTexto, BlankLinesAtTheEndsAreLines) {
  EXPECT_THAT(LineasDeTexto("\r\nAUTO\r\n"), ElementsAre(""_w, "AUTO"_w, ""_w));
  EXPECT_THAT(LineasDeTexto("\r\n\r\nAUTO\r\n\r\n"), ElementsAre(""_w, ""_w, "AUTO"_w, ""_w, ""_w));
}

TEST(LineasDeTexto, TheBlanksAroundTheWholeTextAreNoPartOfIt) {
  EXPECT_THAT(LineasDeTexto("  120 \r\n 180  "), ElementsAre("120 "_w, " 180"_w));
  EXPECT_THAT(LineasDeTexto("  \r\n 120\r\n  "), ElementsAre(""_w, " 120"_w, ""_w));
}

TEST(LineasDeTexto, AnEmptiedTextHasNone) {
  for (const std::string_view text : {"", " ", "    ", "\r\n", "\r\n\r\n", "  \r\n  \r\n "})
    EXPECT_THAT(LineasDeTexto(text), IsEmpty()) << testing::PrintToString(text);
}

TEST(LineasDeTexto, HalfALineEndAndATabAreText) {
  EXPECT_THAT(LineasDeTexto("a\nb\rc"), ElementsAre("a\nb\rc"_w));
  EXPECT_THAT(LineasDeTexto("\r\r\n\n"), ElementsAre("\r"_w, "\n"_w));
  EXPECT_THAT(LineasDeTexto(" \t "), ElementsAre("\t"_w));
}

TEST(LineasDeTexto, GiveBackTheTableThatWasPrinted) {
  std::vector<String> tabla;
  for (const String& linea : TarifasPredeterminadas())
    tabla.push_back(LineaTarifa(linea));
  EXPECT_EQ(LineasDeTexto(TextoDeTabla(tabla)), tabla);
}

TEST(LineaExtraEditada, IsNameAndPriceInCapitals) {
  EXPECT_EQ(LineaExtraEditada("casco moto=120000"), "CASCO MOTO = 120000"_w);
  EXPECT_EQ(LineaExtraEditada("   café   =   12,50   "_w), "CAFÉ = 12,50"_w);
  EXPECT_EQ(LineaExtraEditada("CASCO MOTO = 120000"), "CASCO MOTO = 120000"_w);
}

TEST(LineaExtraEditada, CutsTheNameAt15AndThePriceAt9) {
  // 25 letters, 10 digits.
  EXPECT_EQ(LineaExtraEditada("ABCDEFGHIJKLMNOPQRSTUVWXY = 1234567890"), "ABCDEFGHIJKLMNO = 123456789"_w);
  EXPECT_EQ(LineaExtraEditada("ABCDEFGHIJKLMNO = 123456789"), "ABCDEFGHIJKLMNO = 123456789"_w);
  EXPECT_EQ(LineaExtraEditada("ABCDEFGHIJKLMNOP = 1"), "ABCDEFGHIJKLMNO = 1"_w);
}

TEST(LineaExtraEditada, TrimsTheNameAgainAfterItsCut) {
  // The fifteenth character is the blank behind LIQUIDO.
  EXPECT_EQ(LineaExtraEditada("AMBIEN LIQUIDO PARA AUTO = 20000"), "AMBIEN LIQUIDO = 20000"_w);
}

TEST(LineaExtraEditada, TakesBlanksForTheTabsOfTheName) {
  EXPECT_EQ(LineaExtraEditada("casco\tmoto = 5"), "CASCO MOTO = 5"_w);
  EXPECT_EQ(LineaExtraEditada("\tcasco\t= 5"), "CASCO = 5"_w);
  EXPECT_EQ(LineaExtraEditada("casco = 5\t6"), "CASCO = 5\t6"_w);
  EXPECT_EQ(LineaExtraEditada("\t = \t5"), " = \t5"_w);
}

TEST(LineaExtraEditada, TheFirstEqualsSignParts) {
  EXPECT_EQ(LineaExtraEditada("a = b = 5"), "A = B = 5"_w);
  EXPECT_EQ(LineaExtraEditada("=="), " = ="_w);
}

TEST(LineaExtraEditada, EitherSideMayBeEmpty) {
  EXPECT_EQ(LineaExtraEditada(" = 500"), " = 500"_w);
  EXPECT_EQ(LineaExtraEditada("casco ="), "CASCO = "_w);
  EXPECT_EQ(LineaExtraEditada("="), " = "_w);
}

TEST(LineaExtraEditada, WithoutAnEqualsSignIsKeptTrimmed) {
  EXPECT_EQ(LineaExtraEditada("  articulos\tde venta al publico  "), "ARTICULOS\tDE VENTA AL PUBLICO"_w);
  EXPECT_EQ(LineaExtraEditada("   "), ""_w);
  EXPECT_EQ(LineaExtraEditada(""), ""_w);
}

TEST(LineaExtraEditada, EndsWithTheRecord) {
  EXPECT_EQ(LineaExtraEditada(std::string(101, 'a')), String(100, 'A'));
  // An article is told by the whole line, before its end is lost.
  EXPECT_EQ(LineaExtraEditada(std::string(120, 'a') + " = 7"), "AAAAAAAAAAAAAAA = 7"_w);
}

TEST(LineaPrepagoEditada, StandsAsItIs) {
  EXPECT_EQ(LineaPrepagoEditada("  Minutos = Valor \t "), "  Minutos = Valor \t "_w);
  EXPECT_EQ(LineaPrepagoEditada(""), ""_w);
}

TEST(LineaPrepagoEditada, EndsWithTheRecord) {
  EXPECT_EQ(LineaPrepagoEditada(" " + std::string(100, 'a')), String(" " + std::string(99, 'a')));
}

}  // namespace
}  // namespace vintoral
