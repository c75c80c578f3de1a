#include "platform/desktop/DesktopPlatform.h"

#include <memory>

#include "platform/NativePath.h"

namespace vintoral {

namespace {

/// With a disk of its own: the printer's thread may still hang in one when the station has gone.
SlipFiles FilesIn(const std::string& folder) {
  const auto disk = std::make_shared<PosixDisk>(folder);
  return {[disk](std::string_view path) { return FindIgnoringCase(disk->PathOf(path)); },
          [disk](std::string_view path, const PicturePlace& place) {
            return PictureDecoder().Load(*disk, path, place);
          }};
}

}  // namespace

DesktopPlatform::DesktopPlatform(const std::string& folder, const vintoral::Clock* clock)
    : Mail([this](std::string_view path) { return Disk.Exists(path) ? FileOf(path) : std::string(); }),
      Disk(folder, PosixDisk::Work::kBeside),
      Thread(clock == nullptr ? Clock : *clock),
      Screen(Thread),
      Sound([this](std::string_view path) { return FileOf(path); }),
      System([this](std::string_view path) { return FileOf(path); }),
      Printer(FilesIn(folder)) {}

std::string DesktopPlatform::FileOf(std::string_view path) const {
  return FindIgnoringCase(Disk.PathOf(path));
}

}  // namespace vintoral
