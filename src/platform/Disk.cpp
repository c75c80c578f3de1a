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

}  // namespace vintoral
