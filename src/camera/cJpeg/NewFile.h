#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace vintoral {

enum class NewFileResult { kWritten, kExists, kFailed };

// Whether there is anything of that name, a link that leads nowhere included.
bool IsTaken(const std::string& path);

// Makes a file that did not exist and writes the bytes with one write (more only if the system takes them in
// parts). A file that could not be written whole is removed; the system's reason goes to standard error.
[[nodiscard]] NewFileResult WriteNewFile(const std::string& path, std::span<const std::uint8_t> bytes);

}  // namespace vintoral
