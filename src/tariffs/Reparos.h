// What the text of one line loses or hides when the station reads it, by itself and whatever stands around
// it. A Spanish sentence for the operator; empty when the line is read as it is written.
#pragma once

#include <string_view>

#include "common/String.h"

namespace vintoral {

/// Of what stands right of an "=": a number of nine characters, and none of `marks` is text behind it.
String ReparoDeNumero(std::string_view texto, std::string_view marks);
/// Of a line with an "=" as it was typed.
String ReparoDeRegla(std::string_view linea);

}  // namespace vintoral
