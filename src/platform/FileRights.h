// Who may read the files that a station makes.
#pragma once

#include <sys/stat.h>

#include <string_view>

namespace vintoral {

/// The file of settings that holds a password.
inline constexpr std::string_view kHoldsPassword = "Correo.INI";

/// The rights that a new file asks for, as open takes them; the user's mask takes from them what it does.
inline mode_t RightsOf(std::string_view path) {
  const std::string_view name = path.substr(path.rfind('/') + 1);
  return name == kHoldsPassword ? S_IRUSR | S_IWUSR : 0666;
}

}  // namespace vintoral
