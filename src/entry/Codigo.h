// The codes of tickets.
#pragma once

#include "common/String.h"
#include "platform/Random.h"

namespace vintoral {

/// Twelve characters, each a digit or a capital letter, with equal chances for both kinds.
String CodigoAlAzar(Random& random);

}  // namespace vintoral
