#include "tariffs/Reparos.h"

#include <gtest/gtest.h>

namespace vintoral {
namespace {

std::string Of(std::string_view line) {
  return ReparoDeRegla(line).ToUtf8();
}

std::string OfNumber(std::string_view text) {
  return ReparoDeNumero(text, " *").ToUtf8();
}

TEST(ReparoDeRegla, SaysNothingOfWhatIsReadAsWritten) {
  for (const std::string_view line :
       {"1M = 100*", "  1h=6000  ", "5H = 30000**", "0M = 300000", "1M = 12,50*", "1M = 12.5", "-1M = 0**",
        "+1M = 0**", "9999D = 1", "0001M = 1", "1 MINUTO = 5", "1M** = 5", "1M = 5 **", "1M = 5***",
        "1D = +5", "1M = 0,125*", "1H = 123456789**"})
    EXPECT_EQ(Of(line), "") << line;
}

TEST(ReparoDeRegla, ACutAtTwentyCharactersCounts) {
  const std::string end = "Se pierde el final: solo cuentan 20 caracteres.";
  EXPECT_EQ(Of("1H =         30000**"), "");
  EXPECT_EQ(Of("  1H =         30000**  "), "");
  EXPECT_EQ(Of("1H =          30000**"), end);  // the second star
  EXPECT_EQ(Of("1M =            6000"), "");
  EXPECT_EQ(Of("1M =             6000"), end);  // the last zero
  EXPECT_EQ(Of("1 =             6000M"), end);  // the unit
  EXPECT_EQ(Of("1M = 5              x"), "");   // nothing that is read
  EXPECT_EQ(Of("1H pasado el primero = 5"), "Se pierde el signo =: solo cuentan 20 caracteres.");
}

TEST(ReparoDeRegla, AKeyIsAWholeNumberOfFourDigits) {
  const auto reads = [](const std::string& key) {
    return "La clave se lee " + key + ": cuenta el entero del comienzo, de hasta 4 cifras.";
  };
  EXPECT_EQ(Of("12345M = 1"), reads("1234"));
  EXPECT_EQ(Of("-1234M = 1"), reads("123"));
  EXPECT_EQ(Of("1.5H = 1"), reads("1"));
  EXPECT_EQ(Of("1,5H = 1"), reads("1"));
  EXPECT_EQ(Of(".5H = 1"), reads("0"));
  EXPECT_EQ(Of("1 5M = 1"), reads("1"));
  EXPECT_EQ(Of("1H30 = 1"), reads("1"));
}

TEST(ReparoDeRegla, AKeyWithoutANumberIsZero) {
  for (const std::string_view line : {"M = 300000", "M15 = 500", "\t1H = 5", "- 1M = 5"})
    EXPECT_EQ(Of(line), "La clave se lee 0: no empieza por un número.") << line;
}

TEST(ReparoDeRegla, ARuleNeedsOneUnit) {
  EXPECT_EQ(Of("15 = 500"), "Sin M, H ni D la regla nunca se aplica.");
  EXPECT_EQ(Of("1MH = 500"), "Lleva más de una unidad y cuenta en cada una.");
  EXPECT_EQ(Of("1MHD = 500"), "Lleva más de una unidad y cuenta en cada una.");
}

TEST(ReparoDeRegla, ALetterOfTheValueIsAUnit) {
  const std::string letter = "Una letra M, H o D del valor cuenta como unidad.";
  EXPECT_EQ(Of("1 = 500m"), letter);
  EXPECT_EQ(Of("1M = 500 HORA"), letter);
  EXPECT_EQ(Of("1D = 5 cada uno"), letter);
  EXPECT_EQ(Of("1M = 5M"), letter);
}

TEST(ReparoDeRegla, StarsApartAreOne) {
  EXPECT_EQ(Of("5H = 30000* *"), "Las dos estrellas van juntas: se lee una sola.");
  EXPECT_EQ(Of("5H* = 30000*"), "Las dos estrellas van juntas: se lee una sola.");
}

TEST(ReparoDeRegla, TellsOfTheNumberToo) {
  EXPECT_EQ(Of("1M ="), "Se lee 0: falta el número después del signo =.");
  EXPECT_EQ(Of("1M = 5 = 6"), "Se lee 5: después del número sobra texto.");
}

TEST(ReparoDeNumero, NeedsANumberAtTheStart) {
  for (const std::string_view text : {"", " ", "*", " **", "$5", ".", ",", "-", "\t5", "= 5"})
    EXPECT_EQ(OfNumber(text), "Se lee 0: falta el número después del signo =.") << text;
}

TEST(ReparoDeNumero, EndsAtTheNinthCharacter) {
  EXPECT_EQ(OfNumber(" 123456789**"), "");
  EXPECT_EQ(OfNumber(" 1234567890"), "Se lee 123456789: el número se corta en 9 caracteres.");
  EXPECT_EQ(OfNumber("1234567,89"), "Se lee 1234567.8: el número se corta en 9 caracteres.");
}

TEST(ReparoDeNumero, HasNoMinus) {
  EXPECT_EQ(OfNumber("-500"), "Se lee 500: el signo menos no cuenta.");
  EXPECT_EQ(OfNumber("-0,5*"), "Se lee 0.5: el signo menos no cuenta.");
}

TEST(ReparoDeNumero, EndsBeforeText) {
  EXPECT_EQ(OfNumber("5 000"), "Se lee 5: después del número sobra texto.");
  EXPECT_EQ(OfNumber("1.000.000"), "Se lee 1: después del número sobra texto.");
  EXPECT_EQ(OfNumber("1.000,50"), "Se lee 1: después del número sobra texto.");
  EXPECT_EQ(OfNumber("6000 COP"), "Se lee 6000: después del número sobra texto.");
  EXPECT_EQ(ReparoDeNumero("6000*", " "), "Se lee 6000: después del número sobra texto."_w);
  EXPECT_EQ(ReparoDeNumero("6000 ", " "), ""_w);
}

TEST(ReparoDeNumero, PartsNoThousands) {
  EXPECT_EQ(OfNumber("6.000"), "Se lee 6: el punto y la coma separan decimales.");
  EXPECT_EQ(OfNumber("12,500**"), "Se lee 12.5: el punto y la coma separan decimales.");
  EXPECT_EQ(OfNumber("0.125"), "");
  EXPECT_EQ(OfNumber("0,999"), "");
  EXPECT_EQ(OfNumber("1,000"), "Se lee 1: el punto y la coma separan decimales.");
  EXPECT_EQ(OfNumber("12,50"), "");
  EXPECT_EQ(OfNumber("1,2345"), "");
}

}  // namespace
}  // namespace vintoral
