#pragma once

#include <cstdint>
#include <string_view>

namespace vintoral {

/// Writes all of `bytes` at `offset` of the file behind `descriptor`. 0, or the system's errno; some of them
/// may stand there then.
int WriteAllAt(int descriptor, std::uint64_t offset, std::string_view bytes);

}  // namespace vintoral
