#include "platform/NativePath.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "support/TempFolder.h"

namespace vintoral {
namespace {

TEST(FolderOf, IsAllBeforeTheName) {
  EXPECT_EQ(FolderOf("/srv/Vintoral/file"), "/srv/Vintoral");
  EXPECT_EQ(FolderOf("/file"), "/");
  EXPECT_EQ(FolderOf(""), "/");
}

using test::TempFolder;

TEST(NativePath, BackslashesAndSlashesAreTheSame) {
  EXPECT_EQ(NativePath("Multimedia\\Vintoral.ACT"), "Multimedia/Vintoral.ACT");
  EXPECT_EQ(NativePath("/home/op/Vintoral\\Multimedia\\Vintoral.ACT"),
            "/home/op/Vintoral/Multimedia/Vintoral.ACT");
  EXPECT_EQ(NativePath("Multimedia/Vintoral.ACT"), "Multimedia/Vintoral.ACT");
}

TEST(NativePath, IsUtf8) {
  EXPECT_EQ(NativePath("Im\xE1genes ACT\\000001.jpg"), "Im\xC3\xA1genes ACT/000001.jpg");
  EXPECT_EQ(NativePath("\x80"), "\xE2\x82\xAC");
}

TEST(NativePath, SeparatorsDoNotAddUp) {
  EXPECT_EQ(NativePath("\\\\server\\share\\"), "/server/share");
  EXPECT_EQ(NativePath("/mnt/gate/\\Vintoral.ACT"), "/mnt/gate/Vintoral.ACT");
  EXPECT_EQ(NativePath("/"), "/");
  EXPECT_EQ(NativePath("\\"), "/");
  EXPECT_EQ(NativePath(""), "");
}

TEST(NativePath, ZeroByteNamesNothing) {
  EXPECT_EQ(NativePath(std::string_view("Vintoral.ACT\0.txt", 17)), "");
}

TEST(StationName, TakesUtf8AndOldNames) {
  EXPECT_EQ(StationName("Im\xC3\xA1genes").Bytes(), "Im\xE1genes");
  EXPECT_EQ(StationName("Im\xE1genes").Bytes(), "Im\xE1genes");
  EXPECT_EQ(StationName("\xE8\xBB\x8A.jpg").Bytes(), "?.jpg");
}

TEST(FindIgnoringCase, ExactNameComesFirst) {
  const TempFolder folder;
  folder.Put("vintoral.act", "small");
  folder.Put("Vintoral.ACT", "exact");
  EXPECT_EQ(FindIgnoringCase(folder.Path("Vintoral.ACT")), folder.Path("Vintoral.ACT"));
  EXPECT_EQ(FindIgnoringCase(folder.Path("vintoral.act")), folder.Path("vintoral.act"));
}

TEST(FindIgnoringCase, ALinkToNothingIsThatNameAllTheSame) {
  const TempFolder folder;
  folder.Put("MULTIMEDIA/x", "old");
  ASSERT_EQ(symlink("/nonexistent/mount", folder.Path("Multimedia").c_str()), 0);
  EXPECT_EQ(FindIgnoringCase(folder.Path("Multimedia")), folder.Path("Multimedia"));
  EXPECT_EQ(FindIgnoringCase(folder.Path("Multimedia/x")), folder.Path("Multimedia/x"));
}

TEST(FindIgnoringCase, EveryNameOfThePathMayDiffer) {
  const TempFolder folder;
  folder.Put("multimedia/IM\xC3\x81GENES act/Logo.JPG", "photo");
  EXPECT_EQ(FindIgnoringCase(folder.Path("Multimedia/Im\xC3\xA1genes ACT/logo.jpg")),
            folder.Path("multimedia/IM\xC3\x81GENES act/Logo.JPG"));
}

TEST(FindIgnoringCase, NumberedNamesAreTakenAsWritten) {
  const TempFolder folder;
  folder.Put("fotos/000001.JPG", "photo");
  EXPECT_EQ(FindIgnoringCase(folder.Path("Fotos/000001.jpg")), folder.Path("fotos/000001.jpg"));
  EXPECT_EQ(FindIgnoringCase(folder.Path("Fotos/000001.JPG")), folder.Path("fotos/000001.JPG"));
}

TEST(FindIgnoringCase, OfSeveralTheFirstInByteOrder) {
  const TempFolder folder;
  folder.Put("vintoral.act", "");
  folder.Put("VINTORAL.act", "");
  EXPECT_EQ(FindIgnoringCase(folder.Path("Vintoral.Act")), folder.Path("VINTORAL.act"));
}

TEST(FindIgnoringCase, NamesThatAreNoUtf8AreFound) {
  const TempFolder folder;
  folder.Put("Im\xE1genes ACT/x.jpg", "photo");
  EXPECT_EQ(FindIgnoringCase(folder.Path("Im\xC3\xA1genes ACT/x.jpg")), folder.Path("Im\xE1genes ACT/x.jpg"));
}

TEST(FindIgnoringCase, QuestionMarkFindsWhatAnsiLacks) {
  const TempFolder folder;
  folder.Put("\xE8\xBB\x8A.jpg", "photo");
  EXPECT_EQ(FindIgnoringCase(folder.Path("?.jpg")), folder.Path("\xE8\xBB\x8A.jpg"));
}

TEST(FindIgnoringCase, MissingNameStaysInTheFolderThatWasFound) {
  const TempFolder folder;
  folder.Put("multimedia/x", "");
  EXPECT_EQ(FindIgnoringCase(folder.Path("Multimedia/New/File.txt")), folder.Path("multimedia/New/File.txt"));
  EXPECT_EQ(FindIgnoringCase(folder.Path("Nothing/At/All")), folder.Path("Nothing/At/All"));
  EXPECT_EQ(FindIgnoringCase(""), "");
}

}  // namespace
}  // namespace vintoral
