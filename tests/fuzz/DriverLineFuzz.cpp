// Any lines as operations of a driver, on a station in a folder of the harness's own.
#include <unistd.h>

#include <filesystem>
#include <sstream>

#include "driver/Driver.h"

namespace {
const std::string kFolder = "/dev/shm/vintoral-fuzz-" + std::to_string(getpid());

/// Keeps files in the folder, mail on this machine, and time short; all else goes through as it is.
std::string Tame(const std::string& line) {
  vintoral::Json operation = vintoral::Json::parse(line, nullptr, false);
  if (!operation.is_object()) return line;
  for (const char* const folder : {"dir", "desktop", "pictures"})
    if (operation.contains(folder)) operation[folder] = kFolder;
  operation.erase("mail");
  if (operation.value("ms", vintoral::Json()).is_number() && operation["ms"] > 60000) operation["ms"] = 60000;
  return operation.dump(-1, ' ', false, vintoral::Json::error_handler_t::replace);
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  std::istringstream input("{\"op\":\"start\",\"dir\":\"\",\"desktop\":\"\"}\n" +
                           std::string(reinterpret_cast<const char*>(data), size));
  std::size_t lines = 0, replies = 0;
  const auto read = [&]() -> std::optional<std::string> {
    std::string line;
    if (!std::getline(input, line)) return std::nullopt;
    ++lines;
    return Tame(line);
  };
  vintoral::Driver(read, [&](const std::string&) { ++replies; }).Run();
  std::filesystem::remove_all(kFolder);
  if (replies != lines && input.eof()) __builtin_trap();  // every line but a quit is answered
  return 0;
}
