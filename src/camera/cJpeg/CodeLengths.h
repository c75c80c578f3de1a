#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace vintoral {

// The lengths of the prefix code that spends the fewest bits on the given weights among all codes of at most
// `maxLength` bits, one length for each weight; equal weights come out in the order given, later ones never
// shorter. Needs 2 to 2^maxLength weights in falling order.
//
// Package-merge (Larmore and Hirschberg, "A fast algorithm for optimal length-limited Huffman codes", 1990).
// The adjustment of ITU-T T.81, figure K.3, keeps the limit too, but not the optimum.
std::vector<int> LimitedCodeLengths(std::span<const std::uint64_t> weights, int maxLength);

}  // namespace vintoral
