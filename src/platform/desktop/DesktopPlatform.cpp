#include "platform/desktop/DesktopPlatform.h"

#include "platform/NativePath.h"

namespace vintoral {

DesktopPlatform::DesktopPlatform(const std::string& folder)
    : Disk(folder),
      Sound([this](std::string_view path) { return FileOf(path); }),
      System([this](std::string_view path) { return FileOf(path); }) {}

std::string DesktopPlatform::FileOf(std::string_view path) const {
  return FindIgnoringCase(Disk.PathOf(path));
}

}  // namespace vintoral
