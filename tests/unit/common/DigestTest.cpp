#include "common/Digest.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace vintoral {
namespace {

TEST(Digest, TellsTextsApartThatDifferInOneBitOrInTheirLength) {
  std::set<std::uint64_t> seen{Digest("")};
  std::size_t texts = 1;
  for (std::size_t length = 1; length <= 70; ++length) {
    std::string text(length, '\0');
    seen.insert(Digest(text));
    ++texts;
    for (std::size_t bit = 0; bit < 8 * length; ++bit, ++texts) {
      text[bit / 8] = static_cast<char>(1 << bit % 8);
      seen.insert(Digest(text));
      text[bit / 8] = 0;
    }
  }
  EXPECT_EQ(seen.size(), texts);
}

TEST(Digest, ThePlaceOfAWordCounts) {
  const std::string a(8, 'a'), b(8, 'b');
  EXPECT_NE(Digest(a + b), Digest(b + a));
  EXPECT_NE(Digest(a + std::string(24, '0') + b), Digest(b + std::string(24, '0') + a));
}

}  // namespace
}  // namespace vintoral
