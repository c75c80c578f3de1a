#include "platform/Disk.h"

namespace vintoral {

std::vector<std::optional<FileMark>> Disk::LookIn(std::string_view folder,
                                                  std::span<const String> names) const {
  std::vector<std::optional<FileMark>> marks;
  marks.reserve(names.size());
  for (const String& name : names)
    marks.push_back(Look(String(folder) + "\\"_w + name));
  return marks;
}

Outcome Disk::PutAround(std::string_view path, std::string_view before, std::string_view after) {
  const Result<String> held = ReadAll(path);
  if (!held && !held.Why().Missing()) return held.Why();
  return Replace(path, String(before) + (held ? *held : String()) + String(after));
}

Outcome Disk::Copy(std::string_view from, std::string_view to) {
  const Result<String> held = ReadAll(from);
  return held ? Replace(to, *held) : held.Why();
}

}  // namespace vintoral
