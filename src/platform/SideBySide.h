// Many calls that each wait for a server, several of them at a time.
#pragma once

#include <cstddef>
#include <functional>

namespace vintoral {

/// Calls `work` with each number below `count`, some of them on threads of its own, and returns when all is
/// done. Few are done without a thread, and all are where the system has none to give. `work` must not throw.
void SideBySide(std::size_t count, const std::function<void(std::size_t)>& work);

}  // namespace vintoral
