#pragma once

#include <cstddef>

namespace vintoral::bench {

// From here on the most memory that is in use at a time is counted, beyond what is in use now.
void StartPeak();

// That most, in bytes.
std::size_t Peak();

}  // namespace vintoral::bench
