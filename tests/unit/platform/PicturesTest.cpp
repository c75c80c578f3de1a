#include "platform/Pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

#include "platform/PosixDisk.h"
#include "support/FaultyDisk.h"
#include "support/MemoryDisk.h"
#include "support/TempFolder.h"

namespace vintoral {
namespace {

/// Writes down what it is given to decode.
class Noting : public Pictures {
 public:
  DecodedPicture Decode(std::span<const std::uint8_t> bytes, const PicturePlace& place) const override {
    ++Calls;
    Size = bytes.size();
    Text.assign(bytes.begin(), bytes.begin() + std::min<std::ptrdiff_t>(std::ssize(bytes), 20));
    Width = place.width;
    return {.pixels = nullptr, .fault = PictureFault::kNoPicture};
  }
  mutable int Calls = 0;
  mutable std::size_t Size = 0;
  mutable std::string Text;
  mutable int Width = 0;
};

class PicturesTest : public testing::Test {
 protected:
  PicturesTest() { memory_.Put("Fondos\\a.jpg", "bytes"); }
  /// The system's reason why the file was not read; 0 when it was.
  int WhyNotRead(std::string_view path) {
    const DecodedPicture decoded = pictures_.Load(disk_, path);
    EXPECT_EQ(decoded.fault == PictureFault::kNotRead, !decoded.reading);
    return decoded.reading.Error();
  }
  test::MemoryDisk memory_;
  test::FaultyDisk disk_{memory_};
  Noting pictures_;
};

TEST_F(PicturesTest, AFileIsReadWholeForItsPlace) {
  const DecodedPicture decoded = pictures_.Load(disk_, "FONDOS\\A.JPG", {320, 240});
  EXPECT_EQ(decoded.fault, PictureFault::kNoPicture) << "as the decoder said";
  EXPECT_TRUE(decoded.reading);
  EXPECT_EQ(pictures_.Text, "bytes");
  EXPECT_EQ(pictures_.Width, 320);
}

TEST_F(PicturesTest, AFileIsJudgedByAllOfItsBytesAndTheFewestPixels) {
  EXPECT_EQ(pictures_.Judge(disk_, "Fondos\\a.jpg"), PictureFault::kNoPicture);
  EXPECT_EQ(pictures_.Text, "bytes");
  EXPECT_EQ(pictures_.Width, 1);
  EXPECT_EQ(pictures_.Judge(disk_, "Fondos\\none.jpg"), PictureFault::kNotRead);
}

TEST_F(PicturesTest, AnEmptyFileIsReadToo) {
  memory_.Put("Fondos\\b.jpg", "");
  EXPECT_EQ(WhyNotRead("Fondos\\b.jpg"), 0);
  EXPECT_EQ(pictures_.Calls, 1);
}

TEST_F(PicturesTest, AFileThatCannotBeReadTellsWhy) {
  EXPECT_EQ(WhyNotRead("Fondos\\none.jpg"), ENOENT);
  EXPECT_EQ(WhyNotRead("Fondos"), EISDIR);
  disk_.Set().failLength = true;
  EXPECT_EQ(WhyNotRead("Fondos\\a.jpg"), EIO);
  disk_.Repair();
  disk_.Set().failRead = 1;
  EXPECT_EQ(WhyNotRead("Fondos\\a.jpg"), EIO);
  disk_.Set().goneAfter = 0;
  EXPECT_EQ(WhyNotRead("Fondos\\a.jpg"), ENOTCONN);
  EXPECT_EQ(pictures_.Calls, 0);
  disk_.Repair();
  EXPECT_EQ(WhyNotRead("Fondos\\a.jpg"), 0);
}

TEST_F(PicturesTest, AFileThatEndsBeforeItsLengthIsNotCalledDamaged) {
  // The system's own files say a whole page.
  PosixDisk system("/sys/devices/system/cpu");
  ASSERT_GT(std::filesystem::file_size("/sys/devices/system/cpu/online"), 100U);
  const DecodedPicture decoded = pictures_.Load(system, "online");
  EXPECT_EQ(decoded.fault, PictureFault::kNotRead);
  EXPECT_THAT(decoded.reading.Describe(), testing::HasSubstr("online"));
  EXPECT_EQ(pictures_.Calls, 0);
}

TEST_F(PicturesTest, AVeryLongFileIsNotRead) {
  const test::TempFolder folder;
  folder.Put("a.jpg", "x");
  PosixDisk disk(folder.Path());
  std::filesystem::resize_file(folder.Path("a.jpg"), 67'108'865);
  EXPECT_EQ(pictures_.Load(disk, "a.jpg").fault, PictureFault::kTooLarge);
  EXPECT_EQ(pictures_.Calls, 0);
  std::filesystem::resize_file(folder.Path("a.jpg"), 67'108'864);
  EXPECT_EQ(pictures_.Load(disk, "a.jpg").fault, PictureFault::kNoPicture);
  EXPECT_EQ(pictures_.Size, 67'108'864U);
}

}  // namespace
}  // namespace vintoral
