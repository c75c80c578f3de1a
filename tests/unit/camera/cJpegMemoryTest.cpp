// What the encoder says when there is no memory, wherever on its way it runs out.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "camera/SaveFile.h"
#include "camera/cJpeg/cJpeg.h"
#include "support/MemoryDisk.h"
#include "unit/camera/FailingMemory.h"
#include "unit/camera/MadePictures.h"

namespace vintoral {
namespace {

using Bytes = std::vector<std::uint8_t>;

struct Attempt {
  Bytes file;
  bool failed;
};

Attempt EncodeWith(const cJpeg& jpeg, int allowed) {
  const made::FailingMemory memory(allowed);
  Bytes file = jpeg.Encode();
  return {std::move(file), memory.HasFailed()};
}

// The pieces of memory that encoding takes.
int PiecesFor(const cJpeg& jpeg) {
  int allowed = 0;
  while (EncodeWith(jpeg, allowed).failed)
    ++allowed;
  return allowed;
}

class cJpegMemoryTest : public testing::Test {
 protected:
  cJpegMemoryTest() { EXPECT_TRUE(jpeg.SampleHDC(picture.View(), 30, 20)); }

  made::MadePicture picture = made::Gradient(30, 20);
  cJpeg jpeg;
};

TEST_F(cJpegMemoryTest, EncodeGivesNothingWhereverMemoryEnds) {
  const Bytes whole = jpeg.Encode();
  const int pieces = PiecesFor(jpeg);
  ASSERT_GT(pieces, 20);
  for (int allowed = 0; allowed < pieces; ++allowed)
    ASSERT_THAT(EncodeWith(jpeg, allowed).file, testing::IsEmpty()) << allowed;
  EXPECT_EQ(EncodeWith(jpeg, pieces).file, whole);
}

TEST_F(cJpegMemoryTest, ScansApartGiveNothingEither) {
  jpeg.SetSamplingFrequencies(4, 4, 1, 1, 1, 1);
  const Bytes whole = jpeg.Encode();
  const int pieces = PiecesFor(jpeg);
  for (int allowed = 0; allowed < pieces; ++allowed)
    ASSERT_THAT(EncodeWith(jpeg, allowed).file, testing::IsEmpty()) << allowed;
  EXPECT_EQ(EncodeWith(jpeg, pieces).file, whole);
}

TEST_F(cJpegMemoryTest, SaveFileTellsAndLeavesNoFile) {
  test::MemoryDisk disk;
  for (const int allowed : {0, PiecesFor(jpeg) / 2}) {
    SaveResult result = SaveResult::kSaved;
    {
      const made::FailingMemory memory(allowed);
      result = SaveFile(jpeg, disk, "a.jpg");
    }
    EXPECT_EQ(result, SaveResult::kNoMemory) << allowed;
    EXPECT_FALSE(disk.Exists("a.jpg"));
  }
  EXPECT_EQ(SaveFile(jpeg, disk, "a.jpg"), SaveResult::kSaved);
  EXPECT_TRUE(disk.Exists("a.jpg"));
}

TEST_F(cJpegMemoryTest, SamplingHoldsNothingWithoutMemory) {
  test::MemoryDisk disk;
  ASSERT_FALSE(jpeg.Encode().empty());
  bool sampled = true;
  {
    const made::FailingMemory memory(0);
    sampled = jpeg.SampleHDC(picture.View(), 30, 20);
  }
  EXPECT_FALSE(sampled);
  EXPECT_EQ(SaveFile(jpeg, disk, "never.jpg"), SaveResult::kNoPicture);
}

}  // namespace
}  // namespace vintoral
