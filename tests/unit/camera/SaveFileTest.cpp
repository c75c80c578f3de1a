#include "camera/SaveFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/FaultyDisk.h"
#include "support/MemoryDisk.h"
#include "unit/camera/MadePictures.h"

namespace vintoral {
namespace {

constexpr std::string_view kPhoto = "Multimedia\\000007.jpg";

class SaveFileTest : public testing::Test {
 protected:
  SaveFileTest() {
    EXPECT_TRUE(memory_.CreateFolder("Multimedia"));
    EXPECT_TRUE(jpeg_.SampleHDC(made::Noise(60, 50, 1).View(), 60, 50));
  }
  SaveResult Save(std::string_view path = kPhoto) { return SaveFile(jpeg_, disk_, path); }
  std::string Encoded() const {
    const std::vector<std::uint8_t> file = jpeg_.Encode();
    return {file.begin(), file.end()};
  }

  test::MemoryDisk memory_;
  test::FaultyDisk disk_{memory_};
  cJpeg jpeg_;
};

TEST_F(SaveFileTest, SavesWhatEncodeGives) {
  ASSERT_FALSE(memory_.Exists(kPhoto));
  EXPECT_EQ(Save(), SaveResult::kSaved);
  ASSERT_GT(Encoded().size(), 1000U);
  EXPECT_EQ(memory_.Get(kPhoto), Encoded());
}

TEST_F(SaveFileTest, ResultsHaveTheirNumbers) {
  EXPECT_EQ(static_cast<int>(Save()), 0);
  EXPECT_EQ(static_cast<int>(Save("")), 1);
  EXPECT_EQ(static_cast<int>(Save()), 2);
  EXPECT_EQ(static_cast<int>(Save("No folder\\a.jpg")), 3);
  EXPECT_EQ(static_cast<int>(SaveFile(cJpeg(), disk_, "a.jpg")), 4);
}

TEST_F(SaveFileTest, NeedsAPathBeforeAnythingElse) {
  EXPECT_EQ(SaveFile(cJpeg(), disk_, ""), SaveResult::kNoPath);
  EXPECT_EQ(disk_.Operations(), 0);
}

TEST_F(SaveFileTest, NeverOverwrites) {
  memory_.Put(kPhoto, "old");
  EXPECT_EQ(Save(), SaveResult::kExists);
  EXPECT_EQ(SaveFile(cJpeg(), disk_, kPhoto), SaveResult::kExists);
  EXPECT_EQ(memory_.Get(kPhoto), "old");
}

TEST_F(SaveFileTest, AFolderOfThatNameExistsToo) {
  EXPECT_EQ(Save("Multimedia"), SaveResult::kExists);
  EXPECT_TRUE(memory_.HasFolder("Multimedia"));
}

TEST_F(SaveFileTest, APhotoThatComesAfterTheLookIsNotLost) {
  memory_.Put(kPhoto, "of the other gate");
  disk_.Set().existsSays = false;
  EXPECT_EQ(Save(), SaveResult::kExists);
  EXPECT_EQ(memory_.Get(kPhoto), "of the other gate");
}

TEST_F(SaveFileTest, AFullDiskKeepsNothingOfItAndIsTold) {
  disk_.Set().failAllWrites = true;
  testing::internal::CaptureStderr();
  EXPECT_EQ(Save(), SaveResult::kNotWritten);
  EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::HasSubstr("No space left"));
  EXPECT_FALSE(memory_.Exists(kPhoto));
  disk_.Repair();
  EXPECT_EQ(Save(), SaveResult::kSaved);
}

TEST_F(SaveFileTest, SavesNothingBeforeSampling) {
  EXPECT_EQ(SaveFile(cJpeg(), disk_, kPhoto), SaveResult::kNoPicture);
  EXPECT_FALSE(memory_.Exists(kPhoto));
}

}  // namespace
}  // namespace vintoral
