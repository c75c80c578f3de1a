#include "camera/cJpeg/CodeLengths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <numeric>
#include <random>

namespace vintoral {
namespace {

using Weights = std::vector<std::uint64_t>;

std::uint64_t Cost(const Weights& weights, const std::vector<int>& lengths) {
  std::uint64_t cost = 0;
  for (std::size_t i = 0; i < weights.size(); ++i)
    cost += weights[i] * static_cast<std::uint64_t>(lengths[i]);
  return cost;
}

// What part of all codes of `maxLength` bits the lengths take up; a prefix code exists if it is not above
// 2^maxLength.
std::uint64_t Taken(const std::vector<int>& lengths, int maxLength) {
  std::uint64_t taken = 0;
  for (const int length : lengths)
    taken += std::uint64_t{1} << (maxLength - length);
  return taken;
}

// The least cost, found by trying all lengths that a prefix code can have.
std::uint64_t LeastCost(const Weights& weights, int maxLength) {
  std::uint64_t least = ~std::uint64_t{0};
  std::vector<int> lengths(weights.size(), 1);
  const std::function<void(std::size_t)> tryFrom = [&](std::size_t at) {
    if (at == weights.size()) {
      if (Taken(lengths, maxLength) <= (std::uint64_t{1} << maxLength)) {
        least = std::min(least, Cost(weights, lengths));
      }
      return;
    }
    for (lengths[at] = at == 0 ? 1 : lengths[at - 1]; lengths[at] <= maxLength; ++lengths[at])
      tryFrom(at + 1);
    lengths[at] = 1;
  };
  tryFrom(0);
  return least;
}

TEST(CodeLengths, TwoSymbolsTakeOneBitEach) {
  EXPECT_THAT(LimitedCodeLengths(Weights{7, 0}, 16), testing::ElementsAre(1, 1));
}

TEST(CodeLengths, PowersOfTwoTakeTheirLogarithms) {
  EXPECT_THAT(LimitedCodeLengths(Weights{8, 4, 2, 1, 1}, 16), testing::ElementsAre(1, 2, 3, 4, 4));
}

TEST(CodeLengths, AreTheBestOfAllWithinTheLimit) {
  std::mt19937 random(1);
  for (int round = 0; round < 200; ++round) {
    Weights weights(2 + random() % 6);
    for (auto& weight : weights)
      weight = random() % 3 == 0 ? random() % 1000 : random() % 10;
    std::sort(weights.rbegin(), weights.rend());
    for (const int maxLength : {3, 4, 6}) {
      const std::vector<int> lengths = LimitedCodeLengths(weights, maxLength);
      ASSERT_LE(*std::max_element(lengths.begin(), lengths.end()), maxLength);
      ASSERT_TRUE(std::is_sorted(lengths.begin(), lengths.end()));
      ASSERT_EQ(Taken(lengths, maxLength), std::uint64_t{1} << maxLength);
      ASSERT_EQ(Cost(weights, lengths), LeastCost(weights, maxLength));
    }
  }
}

// Without a limit, weights in the ratio of Fibonacci numbers give a code one bit longer for each symbol.
TEST(CodeLengths, KeepTheLimitForWeightsThatWouldNeedLongerCodes) {
  Weights weights = {1, 1};
  while (weights.size() < 40)
    weights.push_back(weights[weights.size() - 1] + weights[weights.size() - 2]);
  std::reverse(weights.begin(), weights.end());
  const std::vector<int> lengths = LimitedCodeLengths(weights, 16);
  EXPECT_EQ(lengths.back(), 16);
  EXPECT_EQ(Taken(lengths, 16), 65536U);
}

TEST(CodeLengths, FillTheWholeCodeWhereTheLimitLeavesNoChoice) {
  EXPECT_THAT(LimitedCodeLengths(Weights{900, 50, 3, 2, 1, 1, 1, 1}, 3), testing::Each(3));
}

}  // namespace
}  // namespace vintoral
