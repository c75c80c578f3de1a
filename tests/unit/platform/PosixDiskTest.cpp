#include "platform/PosixDisk.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "platform/Descriptor.h"
#include "support/TempFolder.h"

namespace vintoral {
namespace {

using test::TempFolder;
using testing::ElementsAre;

class PosixDiskTest : public testing::Test {
 protected:
  std::vector<std::string> NamesIn(const std::string& name) const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.Path(name)))
      names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }
  mode_t ModeOf(const std::string& name) const {
    struct stat status {};
    stat(folder_.Path(name).c_str(), &status);
    return status.st_mode & 07777;
  }

  TempFolder folder_;
  PosixDisk disk_{folder_.Path()};
};

TEST_F(PosixDiskTest, PathsAreBelowTheStationsFolderOrAbsolute) {
  EXPECT_EQ(disk_.CurrentFolder().Bytes(), folder_.Path());
  EXPECT_EQ(disk_.PathOf("Objetos\\Servidor.INI"), folder_.Path("Objetos/Servidor.INI"));
  EXPECT_EQ(disk_.PathOf(folder_.Path() + "\\Multimedia"), folder_.Path("Multimedia"));
  EXPECT_EQ(disk_.PathOf(""), folder_.Path() + "/");
  EXPECT_EQ(disk_.PathOf("/mnt/gate\\Vintoral.ACT"), "/mnt/gate/Vintoral.ACT");
  EXPECT_EQ(disk_.PathOf(folder_.Path() + "2\\x"), folder_.Path() + "2/x");
  EXPECT_EQ(disk_.PathOf(std::string_view("x\0y", 3)), "");
}

TEST_F(PosixDiskTest, FolderIsCleanedAndMadeAbsolute) {
  EXPECT_EQ(PosixDisk("/srv/x//").CurrentFolder(), "/srv/x"_w);
  EXPECT_EQ(PosixDisk("/").PathOf("/\\Multimedia"), "/Multimedia");
  EXPECT_EQ(PosixDisk("/").PathOf("Multimedia"), "/Multimedia");
  EXPECT_EQ(PosixDisk("").CurrentFolder().ToUtf8(), std::filesystem::current_path().string());
}

TEST_F(PosixDiskTest, StationLivesInAFolderWithAnyName) {
  folder_.Put("\xE8\xBB\x8A\\1/Multimedia/Vintoral.ACT", "inside");
  const std::string native = folder_.Path("\xE8\xBB\x8A\\1");
  PosixDisk disk(native);
  EXPECT_EQ(disk.CurrentFolder().Bytes(), folder_.Path("?\\1"));
  EXPECT_EQ(disk.ReadAll("Multimedia\\Vintoral.ACT"), "inside"_w);
  EXPECT_EQ(disk.ReadAll(disk.CurrentFolder() + "\\Multimedia\\Vintoral.ACT"_w), "inside"_w);
}

TEST_F(PosixDiskTest, ExistsIsForFiles) {
  folder_.Put("Multimedia/Vintoral.ACT", "");
  EXPECT_TRUE(disk_.Exists("Multimedia\\Vintoral.ACT"));
  EXPECT_TRUE(disk_.Exists("MULTIMEDIA\\vintoral.act"));
  EXPECT_FALSE(disk_.Exists("Multimedia"));
  EXPECT_FALSE(disk_.Exists("Multimedia\\Vintoral.HST"));
  EXPECT_FALSE(disk_.Exists("Multimedia\\Vintoral.ACT\\x"));
  EXPECT_FALSE(disk_.Exists(""));
  EXPECT_FALSE(disk_.Exists(std::string_view("Multimedia\\Vintoral.ACT\0", 24)));
  EXPECT_FALSE(disk_.Exists(std::string(5000, 'x')));
}

TEST_F(PosixDiskTest, OpenForReadingNeedsTheFile) {
  EXPECT_EQ(disk_.Open("x", OpenMode::kRead).Why().Error(), ENOENT);
  EXPECT_EQ(disk_.Open("x", OpenMode::kReadWrite).Why().Error(), ENOENT);
  EXPECT_EQ(folder_.Get("x"), "(missing)");
}

TEST_F(PosixDiskTest, CreateMakesTheFileAndKeepsOneThatIsThere) {
  EXPECT_TRUE(disk_.Open("New.CRD", OpenMode::kCreate));
  EXPECT_EQ(folder_.Get("New.CRD"), "");
  folder_.Put("Old.CRD", "content");
  EXPECT_TRUE(disk_.Open("old.crd", OpenMode::kCreate));
  EXPECT_EQ(folder_.Get("Old.CRD"), "content");
  EXPECT_THAT(NamesIn(""), ElementsAre("New.CRD", "Old.CRD"));
  EXPECT_EQ(disk_.Open("No folder\\x", OpenMode::kCreate).Why().Error(), ENOENT);
}

TEST_F(PosixDiskTest, NoFolderAndNoPipeIsAFile) {
  folder_.Put("Folder/x", "");
  ASSERT_EQ(mkfifo(folder_.Path("Pipe").c_str(), 0600), 0);
  for (const OpenMode mode : {OpenMode::kRead, OpenMode::kReadWrite, OpenMode::kCreate}) {
    EXPECT_EQ(disk_.Open("Folder", mode).Why().Error(), EISDIR);
    EXPECT_FALSE(disk_.Open("Pipe", mode));
  }
  EXPECT_EQ(disk_.ReadAll("Folder").Why().Error(), EISDIR);
  EXPECT_FALSE(disk_.ReadAll("Pipe"));
  EXPECT_FALSE(disk_.Exists("Pipe"));
}

TEST_F(PosixDiskTest, ReadAllGivesEveryByte) {
  std::string bytes;
  for (int i = 0; i < 200000; ++i)
    bytes += static_cast<char>(static_cast<unsigned char>(i % 251));
  folder_.Put("big", bytes);
  folder_.Put("empty", "");
  EXPECT_EQ(disk_.ReadAll("big").Take().Bytes(), bytes);
  EXPECT_EQ(disk_.ReadAll("empty"), ""_w);
  EXPECT_EQ(disk_.ReadAll("missing").Why().Describe(),
            "open " + folder_.Path("missing") + ": No such file or directory");
  EXPECT_FALSE(disk_.ReadAll(""));
}

TEST_F(PosixDiskTest, ReadAllReadsFilesThatHideTheirLength) {
  // The system's own files say 0.
  PosixDisk system("/proc/self");
  EXPECT_THAT(system.ReadAll("status").Take().Bytes(),
              testing::HasSubstr("\nPid:\t" + std::to_string(getpid()) + "\n"));
}

TEST_F(PosixDiskTest, ReadAllTellsWhyItFailed) {
  PosixDisk system("/proc/self");
  // Opens, and refuses to be read from its beginning, which is no mapped memory.
  EXPECT_EQ(system.ReadAll("mem").Why().Describe(), "read /proc/self/mem: Input/output error");
  // A terabyte of nothing: no file of the station is as large.
  folder_.Put("huge", "");
  std::filesystem::resize_file(folder_.Path("huge"), std::uintmax_t{1} << 40);
  EXPECT_EQ(disk_.ReadAll("huge").Why().Error(), EFBIG);
}

TEST_F(PosixDiskTest, ReplaceMakesAndReplaces) {
  EXPECT_TRUE(disk_.Replace("New.DVS", "$\r\n"));
  EXPECT_EQ(folder_.Get("New.DVS"), "$\r\n");
  EXPECT_TRUE(disk_.Replace("new.dvs", ""));
  EXPECT_EQ(folder_.Get("New.DVS"), "");
  EXPECT_THAT(NamesIn(""), ElementsAre("New.DVS"));
}

TEST_F(PosixDiskTest, ReplaceLeavesAnOpenReaderTheOldFile) {
  folder_.Put("x", "old");
  const std::unique_ptr<DiskFile> reader = disk_.Open("x", OpenMode::kRead).Take();
  EXPECT_TRUE(disk_.Replace("x", "new and longer"));
  std::array<char, 20> bytes{};
  EXPECT_EQ(reader->ReadAt(0, bytes), 3u);
  EXPECT_EQ(std::string(bytes.data(), 3), "old");
  EXPECT_EQ(folder_.Get("x"), "new and longer");
}

TEST_F(PosixDiskTest, ReplaceThatFailsChangesNothing) {
  folder_.Put("Folder/x", "inside");
  EXPECT_FALSE(disk_.Replace("Folder", "bytes"));
  EXPECT_EQ(disk_.Replace("No folder\\x", "bytes").Error(), ENOENT);
  EXPECT_EQ(disk_.Replace(std::string_view("a\0b", 3), "bytes").Error(), ENOENT);
  EXPECT_THAT(NamesIn(""), ElementsAre("Folder"));
  EXPECT_EQ(folder_.Get("Folder/x"), "inside");
}

TEST_F(PosixDiskTest, ReplaceUnsyncedIsTheSameToReaders) {
  EXPECT_TRUE(disk_.ReplaceUnsynced("New.FDR", "first"));
  const std::unique_ptr<DiskFile> reader = disk_.Open("New.FDR", OpenMode::kRead).Take();
  EXPECT_TRUE(disk_.ReplaceUnsynced("new.fdr", "second and longer"));
  std::array<char, 32> seen{};
  EXPECT_EQ(reader->ReadAt(0, seen), 5u);
  EXPECT_EQ(folder_.Get("New.FDR"), "second and longer");
  EXPECT_EQ(disk_.ReplaceUnsynced("No folder\\x", "bytes").Error(), ENOENT);
  EXPECT_THAT(NamesIn(""), ElementsAre("New.FDR"));
}

TEST_F(PosixDiskTest, ReplaceKeepsPermissions) {
  folder_.Put("x", "old");
  ASSERT_EQ(chmod(folder_.Path("x").c_str(), 0640), 0);
  EXPECT_TRUE(disk_.Replace("x", "new"));
  EXPECT_EQ(ModeOf("x"), 0640u);
}

TEST_F(PosixDiskTest, ReplaceWritesWhereALinkPoints) {
  folder_.Put("real/x", "old");
  std::filesystem::create_symlink("real/x", folder_.Path("link"));
  EXPECT_TRUE(disk_.Replace("link", "new"));
  EXPECT_EQ(folder_.Get("real/x"), "new");
  EXPECT_TRUE(std::filesystem::is_symlink(folder_.Path("link")));
  EXPECT_THAT(NamesIn("real"), ElementsAre("x"));
}

TEST_F(PosixDiskTest, CreateNewMakesAFileOnce) {
  ASSERT_TRUE(disk_.CreateFolder("Im\xE1genes ACT"));
  EXPECT_TRUE(disk_.CreateNew("IM\xC1GENES ACT\\000007.jpg", "photo"));
  EXPECT_EQ(folder_.Get("Im\xC3\xA1genes ACT/000007.jpg"), "photo");
  const Outcome again = disk_.CreateNew("Im\xE1genes ACT\\000007.jpg", "other");
  EXPECT_EQ(again.Error(), EEXIST);
  EXPECT_THAT(again.Describe(), testing::HasSubstr(folder_.Path("Im\xC3\xA1genes ACT/000007.jpg")));
  EXPECT_EQ(folder_.Get("Im\xC3\xA1genes ACT/000007.jpg"), "photo");
  EXPECT_THAT(NamesIn("Im\xC3\xA1genes ACT"), ElementsAre("000007.jpg"));
}

TEST_F(PosixDiskTest, CreateNewKnowsANameInOtherCase) {
  folder_.Put("Logo.jpg", "old");
  EXPECT_EQ(disk_.CreateNew("LOGO.JPG", "new").Error(), EEXIST);
  EXPECT_EQ(disk_.CreateNew("No folder\\x", "new").Error(), ENOENT);
  EXPECT_EQ(disk_.CreateNew(std::string_view("a\0b", 3), "new").Error(), ENOENT);
  EXPECT_THAT(NamesIn(""), ElementsAre("Logo.jpg"));
}

TEST_F(PosixDiskTest, TheMarkOfAFileIsItsLengthAndItsTime) {
  folder_.Put("Fotos/000001.jpg", "photo");
  const timespec times[2] = {{1, 0}, {1'700'000'000, 250}};
  ASSERT_EQ(utimensat(AT_FDCWD, folder_.Path("Fotos/000001.jpg").c_str(), times, 0), 0);
  const FileMark mark{5, 1'700'000'000'000'000'250};
  EXPECT_EQ(disk_.Look("Fotos\\000001.jpg"), mark);
  EXPECT_EQ(disk_.Look("FOTOS\\000001.jpg"), mark);
  EXPECT_EQ(disk_.Look("Fotos\\000002.jpg"), std::nullopt);
  EXPECT_EQ(disk_.Look("Fotos"), std::nullopt);
  EXPECT_EQ(disk_.Look("No folder\\000001.jpg"), std::nullopt);
}

TEST_F(PosixDiskTest, PhotosAreFoundByWayOfTheirFolder) {
  folder_.Put("Fotos/000001.jpg", "photo");
  folder_.Put("Fotos/000002.jpg/inside", "");
  folder_.Put("No folder", "");
  std::filesystem::create_symlink("000001.jpg", folder_.Path("Fotos/000003.jpg"));
  std::filesystem::create_symlink("nothing", folder_.Path("Fotos/000004.jpg"));
  std::filesystem::create_directory_symlink("Fotos", folder_.Path("Elsewhere"));
  std::filesystem::create_directory_symlink("nothing", folder_.Path("Nowhere"));
  folder_.Put("NOWHERE/000001.jpg", "photo");
  const auto found = [&](std::string_view path) {
    EXPECT_EQ(disk_.Exists(path), disk_.Look(path).has_value()) << path;
    return disk_.Exists(path);
  };
  for (const char* photo :
       {"Fotos\\000001.jpg", "FOTOS\\000001.jpg", "Fotos\\000003.jpg", "elsewhere\\000001.jpg"})
    EXPECT_TRUE(found(photo)) << photo;
  for (const char* photo :
       {"Fotos\\000001.JPG", "Fotos\\000002.jpg", "Fotos\\000004.jpg", "Fotos\\000005.jpg",
        "FOTOS\\000005.jpg", "No folder\\000001.jpg", "Nowhere\\000001.jpg", "x\\000001.jpg"})
    EXPECT_FALSE(found(photo)) << photo;
  folder_.Put("000001.jpg", "photo");
  EXPECT_TRUE(found("000001.jpg"));
}

TEST_F(PosixDiskTest, MarksOfAFolderComeInTheOrderOfTheNames) {
  folder_.Put("Im\xC3\xA1genes ACT/000001.jpg", "photo");
  folder_.Put("Im\xC3\xA1genes ACT/000003.jpg/inside", "");
  folder_.Put("Im\xC3\xA1genes ACT/\xC3\x91.jpg", "no");
  const std::vector<String> names = {"000002.jpg"_w, "000001.jpg"_w, "000003.jpg"_w, "Ñ.jpg"_w};
  const auto lengths = [&](std::string_view folder) {
    std::vector<std::uint64_t> found;
    for (const std::optional<FileMark>& mark : disk_.LookIn(folder, names))
      found.push_back(mark ? mark->length : 99);
    return found;
  };
  EXPECT_THAT(lengths("Im\xE1genes ACT"), ElementsAre(99, 5, 99, 2));
  EXPECT_THAT(lengths("IM\xC1GENES act"), ElementsAre(99, 5, 99, 2));
  EXPECT_THAT(lengths("Im\xE1genes HST"), ElementsAre(99, 99, 99, 99));
  EXPECT_EQ(disk_.Disk::LookIn("Im\xE1genes ACT", names), disk_.LookIn("Im\xE1genes ACT", names));
}

TEST_F(PosixDiskTest, MarksOfAFolderOnNoDiskComeInTheOrderOfTheNames) {
  const PosixDisk system("/proc");
  std::vector<String> names;
  for (int i = 0; i < 50; ++i)
    names.push_back(i % 3 == 0 ? "stat"_w : i % 3 == 1 ? "fd"_w : "nothing"_w);
  const auto marks = system.LookIn("self", names);
  ASSERT_EQ(marks.size(), 50u);
  for (std::size_t i = 0; i < marks.size(); ++i)
    EXPECT_EQ(marks[i].has_value(), i % 3 == 0) << i;
}

TEST_F(PosixDiskTest, AFileThatIsOpenForWritingIsBeingWritten) {
  folder_.Put("x", "photo");
  EXPECT_FALSE(disk_.BeingWritten("x"));
  EXPECT_FALSE(disk_.BeingWritten("none"));
  {
    const Descriptor reader(open(folder_.Path("x").c_str(), O_RDONLY | O_CLOEXEC));
    EXPECT_FALSE(disk_.BeingWritten("x"));
    const Descriptor writer(open(folder_.Path("x").c_str(), O_WRONLY | O_CLOEXEC));
    EXPECT_TRUE(disk_.BeingWritten("X"));
  }
  EXPECT_FALSE(disk_.BeingWritten("x"));
}

TEST_F(PosixDiskTest, CreateFolderIsDoneWhenItIsThere) {
  EXPECT_TRUE(disk_.CreateFolder("Multimedia"));
  EXPECT_TRUE(disk_.CreateFolder("Multimedia\\Im\xE1genes ACT"));
  EXPECT_TRUE(std::filesystem::is_directory(folder_.Path("Multimedia/Im\xC3\xA1genes ACT")));
  EXPECT_TRUE(disk_.CreateFolder("MULTIMEDIA"));
  EXPECT_THAT(NamesIn(""), ElementsAre("Multimedia"));
  folder_.Put("file", "");
  EXPECT_EQ(disk_.CreateFolder("file").Error(), EEXIST);
  EXPECT_EQ(disk_.CreateFolder("No\\way").Error(), ENOENT);
}

TEST_F(PosixDiskTest, RemoveTakesFilesAway) {
  folder_.Put("x", "");
  folder_.Put("Folder/y", "");
  EXPECT_TRUE(disk_.Remove("X"));
  EXPECT_EQ(disk_.Remove("x").Error(), ENOENT);
  EXPECT_FALSE(disk_.Remove("Folder"));
  EXPECT_THAT(NamesIn(""), ElementsAre("Folder"));
}

TEST_F(PosixDiskTest, ClearReadOnlyLetsTheOwnerWrite) {
  folder_.Put("x", "");
  ASSERT_EQ(chmod(folder_.Path("x").c_str(), 0444), 0);
  EXPECT_TRUE(disk_.ClearReadOnly("x"));
  EXPECT_EQ(ModeOf("x"), 0644u);
  EXPECT_TRUE(disk_.ClearReadOnly("missing"));
  EXPECT_TRUE(disk_.ClearReadOnly("no\\folder"));
}

TEST_F(PosixDiskTest, ListGivesFilesInAlphabeticalOrder) {
  for (const char* name : {"b.jpg", "A.JPG", "c.jpeg", ".d.jpg", "\xE8\xBB\x8A.jpg", "\xC3\x91.jpg", "jpg"})
    folder_.Put(std::string("Fondos/") + name, "");
  folder_.Put("Fondos/folder.jpg/x", "");
  std::filesystem::create_symlink("b.jpg", folder_.Path("Fondos/z.jpg"));
  std::filesystem::create_symlink("nothing", folder_.Path("Fondos/y.jpg"));
  EXPECT_THAT(disk_.List("FONDOS", ".Jpg"),
              ElementsAre("?.jpg"_w, "A.JPG"_w, "b.jpg"_w, "z.jpg"_w, "\xC3\x91.jpg"_w));
  EXPECT_THAT(disk_.List("Nothing", ".jpg"), ElementsAre());
}

}  // namespace
}  // namespace vintoral
