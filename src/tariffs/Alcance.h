// Which rules of a category any stay ever meets.
#pragma once

#include <vector>

#include "common/String.h"

namespace vintoral {

/// For each line of `categoria`, the lines of LineasDeCategoria, whether it gives the minutes, the hours or
/// the days of some stay their price. Asks the function that prices stays.
std::vector<bool> LineasAlcanzadas(const std::vector<String>& categoria);

}  // namespace vintoral
