#include "records/LineaTexto.h"

#include <gtest/gtest.h>

namespace vintoral {
namespace {

TEST(LineaTexto, FirstLineEndsWithEitherLineEnd) {
  EXPECT_EQ(PrimeraLinea("$\r\n"), "$"_w);
  EXPECT_EQ(PrimeraLinea("$\n"), "$"_w);
  EXPECT_EQ(PrimeraLinea("$\r"), "$"_w);
  EXPECT_EQ(PrimeraLinea("$"), "$"_w);
  EXPECT_EQ(PrimeraLinea("one\r\ntwo\r\n"), "one"_w);
  EXPECT_EQ(PrimeraLinea("one\ntwo"), "one"_w);
}

TEST(LineaTexto, EmptyFileAndEmptyLineAreEmpty) {
  EXPECT_EQ(PrimeraLinea(""), ""_w);
  EXPECT_EQ(PrimeraLinea("\r\n$"), ""_w);
  EXPECT_EQ(PrimeraLinea("\n"), ""_w);
}

TEST(LineaTexto, KeepsBlanksAndAllOtherBytes) {
  EXPECT_EQ(PrimeraLinea(" \t\xFF \r\n").Bytes(), " \t\xFF ");
}

TEST(LineaTexto, IsWrittenWithCrLf) {
  EXPECT_EQ(ConFinDeLinea("COP$").Bytes(), "COP$\r\n");
  EXPECT_EQ(ConFinDeLinea("").Bytes(), "\r\n");
}

}  // namespace
}  // namespace vintoral
