// Settings that people edit by hand are saved as Windows-1252 by one editor and as UTF-8 by the next.
#pragma once

#include <string_view>

#include "common/String.h"

namespace vintoral {

/// Whether every byte belongs to a well-formed UTF-8 sequence. Plain ASCII does.
bool IsUtf8(std::string_view bytes);

/// Text that is valid UTF-8 with at least one multi-byte sequence is converted to Windows-1252; any other is
/// Windows-1252 already and stays. A byte-order mark at the start stays as its three bytes.
String UTF8toANSI(std::string_view bytes);

}  // namespace vintoral
