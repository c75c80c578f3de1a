#include "camera/SaveFile.h"

#include <cerrno>

namespace vintoral {

SaveResult SaveFile(const cJpeg& jpeg, Disk& disk, std::string_view path) {
  if (path.empty()) return SaveResult::kNoPath;
  if (disk.Exists(path)) return SaveResult::kExists;
  if (!jpeg.HasPicture()) return SaveResult::kNoPicture;
  const std::vector<std::uint8_t> file = jpeg.Encode();
  if (file.empty()) return SaveResult::kNoMemory;
  const Outcome saved = disk.CreateNew(path, {reinterpret_cast<const char*>(file.data()), file.size()});
  if (saved) return SaveResult::kSaved;
  // Another gate was faster, or a folder has the name.
  if (saved.Error() == EEXIST) return SaveResult::kExists;
  saved.PassOver();
  return SaveResult::kNotWritten;
}

}  // namespace vintoral
