#include "records/TextoAjustes.h"

#include <gtest/gtest.h>

namespace vintoral {
namespace {

TEST(TextoAjustes, TheValueStandsBehindTheNameWithoutItsBlanks) {
  EXPECT_EQ(Ajuste("Direccion = https://a.example \r\n", "Direccion"), "https://a.example"_w);
  EXPECT_EQ(Ajuste("a=1\nb = 2\rc=3", "C"), "3"_w);
  EXPECT_EQ(Ajuste("a = x = y", "a"), "x = y"_w);
  EXPECT_EQ(Ajuste("a =", "a"), ""_w);
}

TEST(TextoAjustes, TheFirstLineOfANameCounts) {
  EXPECT_EQ(Ajuste("a = 1\na = 2\n", "a"), "1"_w);
}

TEST(TextoAjustes, RemarksAndOtherLinesAreNone) {
  EXPECT_EQ(Ajuste("; a = 1\n  ;a=2\na 3\n", "a"), std::nullopt);
  EXPECT_EQ(Ajuste("", "a"), std::nullopt);
  EXPECT_EQ(Ajuste("ab = 1", "a"), std::nullopt);
}

TEST(TextoAjustes, BothEncodingsAreRead) {
  EXPECT_EQ(Ajuste("a = \xC3\xB1", "a"), "ñ"_w);
  EXPECT_EQ(Ajuste("a = \xF1", "a"), "ñ"_w);
}

}  // namespace
}  // namespace vintoral
