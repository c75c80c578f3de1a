// The disks that other tests stand on.
#include "support/FaultyDisk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/MemoryDisk.h"

namespace vintoral {
namespace {

using test::FaultyDisk;
using test::MemoryDisk;
using testing::ElementsAre;

TEST(MemoryDisk, FindsNamesWhateverTheirCaseAndSeparators) {
  MemoryDisk disk;
  disk.Put("Multimedia\\Vintoral.ACT", "bytes");
  EXPECT_TRUE(disk.Exists("multimedia/VINTORAL.act"));
  EXPECT_TRUE(disk.Exists("/estacion\\Multimedia\\Vintoral.ACT"));
  EXPECT_FALSE(disk.Exists("Multimedia"));
  EXPECT_EQ(disk.ReadAll("Multimedia/\\Vintoral.ACT"), "bytes"_w);
  EXPECT_FALSE(disk.ReadAll("Multimedia"));
}

TEST(MemoryDisk, NeedsTheFolderAndTheRight) {
  MemoryDisk disk;
  EXPECT_FALSE(disk.Open("Recursos\\x", OpenMode::kCreate));
  EXPECT_TRUE(disk.CreateFolder("Recursos"));
  EXPECT_TRUE(disk.CreateFolder("RECURSOS"));
  EXPECT_TRUE(disk.Open("Recursos\\x", OpenMode::kCreate));
  disk.SetReadOnly("Recursos\\x");
  EXPECT_EQ(disk.Open("Recursos\\x", OpenMode::kReadWrite).Why().Error(), EACCES);
  EXPECT_EQ(disk.Replace("Recursos\\x", "").Error(), EACCES);
  EXPECT_TRUE(disk.ClearReadOnly("Recursos\\x"));
  EXPECT_TRUE(disk.Replace("Recursos\\x", "new"));
  EXPECT_EQ(disk.Get("Recursos\\x"), "new");
  EXPECT_TRUE(disk.Remove("recursos\\X"));
  EXPECT_EQ(disk.Remove("recursos\\X").Error(), ENOENT);
}

TEST(MemoryDisk, CreateNewMakesAFileOnce) {
  MemoryDisk disk;
  EXPECT_EQ(disk.CreateNew("Fondos\\a.jpg", "x").Error(), ENOENT);
  ASSERT_TRUE(disk.CreateFolder("Fondos"));
  EXPECT_TRUE(disk.CreateNew("Fondos\\a.jpg", "first"));
  EXPECT_EQ(disk.CreateNew("FONDOS\\A.jpg", "second").Error(), EEXIST);
  EXPECT_EQ(disk.Get("Fondos\\a.jpg"), "first");
  EXPECT_EQ(disk.CreateNew("Fondos", "x").Error(), EEXIST);
}

TEST(MemoryDisk, ListsFilesOfOneFolder) {
  MemoryDisk disk;
  disk.Put("Fondos\\b.jpg", "");
  disk.Put("Fondos\\A.JPG", "");
  disk.Put("Fondos\\c.png", "");
  disk.Put("Fondos\\More\\d.jpg", "");
  EXPECT_THAT(disk.List("fondos", ".jpg"), ElementsAre("A.JPG"_w, "b.jpg"_w));
}

class FaultyDiskTest : public testing::Test {
 protected:
  void SetUp() override { memory_.Put("x", "0123456789"); }
  MemoryDisk memory_;
  FaultyDisk disk_{memory_};
};

TEST_F(FaultyDiskTest, NewFilesFailAsTold) {
  disk_.Set().failWrite = 1;
  EXPECT_EQ(disk_.CreateNew("y", "1").Error(), ENOSPC);
  disk_.Set().openReadOnly = true;
  EXPECT_EQ(disk_.CreateNew("y", "2").Error(), EACCES);
  disk_.Repair();
  disk_.Set().goneAfter = 0;
  EXPECT_EQ(disk_.CreateNew("y", "3").Error(), ENOTCONN);
  EXPECT_EQ(memory_.Get("y"), "(missing)");
  disk_.Repair();
  EXPECT_TRUE(disk_.CreateNew("y", "4"));
  EXPECT_EQ(memory_.Get("y"), "4");
}

TEST_F(FaultyDiskTest, WritesFailAsTold) {
  const std::unique_ptr<DiskFile> file = disk_.Open("x", OpenMode::kReadWrite).Take();
  disk_.Set().failWrite = 2;
  EXPECT_TRUE(file->WriteAt(0, std::string_view("A")));
  EXPECT_EQ(file->WriteAt(1, std::string_view("B")).Error(), ENOSPC);
  EXPECT_TRUE(file->WriteAt(2, std::string_view("C")));
  disk_.Set() = {.failAllWrites = true, .writeError = EIO, .tornBytes = 1};
  EXPECT_EQ(file->WriteAt(3, std::string_view("DE")).Error(), EIO);
  EXPECT_EQ(disk_.Replace("x", "").Error(), EIO);
  EXPECT_EQ(disk_.CreateFolder("y").Error(), EIO);
  EXPECT_EQ(memory_.Get("x"), "A1CD456789");
}

TEST_F(FaultyDiskTest, FileSeemsToEnd) {
  disk_.Set().cutAt = 4;
  const std::unique_ptr<DiskFile> file = disk_.Open("x", OpenMode::kRead).Take();
  std::array<char, 10> bytes{};
  EXPECT_EQ(file->Length(), 4u);
  EXPECT_EQ(file->ReadAt(2, bytes), 2u);
  EXPECT_EQ(file->ReadAt(9, bytes), 0u);
  EXPECT_EQ(disk_.ReadAll("x"), "0123"_w);
}

TEST_F(FaultyDiskTest, FolderGoesAfterSoManyOperations) {
  disk_.Set().goneAfter = 2;
  EXPECT_TRUE(disk_.Exists("x"));
  const std::unique_ptr<DiskFile> file = disk_.Open("x", OpenMode::kReadWrite).Take();
  EXPECT_EQ(file->Length().Why().Error(), ENOTCONN);
  EXPECT_EQ(file->WriteAt(0, std::string_view("A")).Error(), ENOTCONN);
  EXPECT_FALSE(disk_.Exists("x"));
  EXPECT_EQ(disk_.Open("x", OpenMode::kRead).Why().Error(), ENOTCONN);
  EXPECT_EQ(disk_.ReadAll("x").Why().Error(), ENOTCONN);
  disk_.Repair();
  EXPECT_TRUE(disk_.Exists("x"));
  EXPECT_EQ(memory_.Get("x"), "0123456789");
}

TEST_F(FaultyDiskTest, LiesAndRefuses) {
  disk_.Set().existsSays = false;
  EXPECT_FALSE(disk_.Exists("x"));
  disk_.Set() = {.existsSays = true, .openReadOnly = true};
  EXPECT_TRUE(disk_.Exists("y"));
  EXPECT_EQ(disk_.Open("x", OpenMode::kReadWrite).Why().Error(), EACCES);
  EXPECT_TRUE(disk_.Open("x", OpenMode::kRead));
  disk_.Set() = {.failSync = true};
  EXPECT_EQ(disk_.Open("x", OpenMode::kReadWrite).Take()->Sync().Error(), EIO);
  EXPECT_EQ(disk_.EndTogether().Error(), EIO);
}

}  // namespace
}  // namespace vintoral
