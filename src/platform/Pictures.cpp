#include "platform/Pictures.h"

#include <cerrno>
#include <vector>

namespace vintoral {
namespace {

DecodedPicture NotRead(const Outcome& why) {
  return {.pixels = nullptr, .fault = PictureFault::kNotRead, .reading = why};
}

}  // namespace

DecodedPicture Pictures::Load(Disk& disk, std::string_view path, const PicturePlace& place) const {
  const Result<std::unique_ptr<DiskFile>> file = disk.Open(path, OpenMode::kRead);
  if (!file) return NotRead(file.Why());
  const Result<std::uint64_t> length = (*file)->Length();
  if (!length) return NotRead(length.Why());
  if (*length > kLongestPicture) return {.pixels = nullptr, .fault = PictureFault::kTooLarge};
  std::vector<std::uint8_t> bytes(*length);
  const Result<std::size_t> got = (*file)->ReadAt(0, {reinterpret_cast<char*>(bytes.data()), bytes.size()});
  if (!got) return NotRead(got.Why());
  // A file that ends before its length is the disk's fault: the photo must not be taken for damaged.
  if (*got < bytes.size()) return NotRead(Outcome::Failed("read all of", String(path).ToUtf8(), EIO));
  return Decode(bytes, place);
}

}  // namespace vintoral
