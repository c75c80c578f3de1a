// What a category charges over a day, for the operator who is writing its rules.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "common/Money.h"
#include "common/String.h"

namespace vintoral {

/// From a stay of nothing to one of a whole day, a minute apart, both ends included.
inline constexpr std::size_t kPuntosCurva = 24 * 60 + 1;

/// The value of each of these stays under `categoria`, if the edited `lineas` were saved; 0 where no rule
/// counts for a stay. Empty when none does for any of them: the category has no price, or is not there.
std::vector<Money> CurvaDeTarifa(const std::vector<String>& lineas, std::string_view categoria);

}  // namespace vintoral
