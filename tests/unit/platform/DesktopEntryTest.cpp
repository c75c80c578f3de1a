#include "platform/DesktopEntry.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <string>

#include "support/TempFolder.h"

namespace vintoral {
namespace {

using test::TempFolder;

/// The value of one key; "(missing)" when there is none.
std::string ValueIn(const std::string& text, const std::string& key) {
  const std::size_t at = text.find("\n" + key + "=");
  if (at == std::string::npos) return "(missing)";
  const std::size_t from = at + key.size() + 2;
  return text.substr(from, text.find('\n', from) - from);
}

std::string Value(const std::string& key, const DesktopEntry& entry) {
  return ValueIn(DesktopEntryText(entry), key);
}

std::string Exec(const std::string& executable) {
  return Value("Exec", {.name = "Vintoral", .executable = executable, .workingFolder = "/", .icon = "/v"});
}

std::string Name(const std::string& name) {
  return Value("Name", {.name = name, .executable = "/v", .workingFolder = "/", .icon = "/v"});
}

const DesktopEntry kEntry{.name = "Vintoral",
                          .executable = "/usr/bin/vintoral",
                          .workingFolder = "/srv/Estación €",
                          .icon = "/srv/Estación €\\Recursos\\Vintoral.ico"};

TEST(DesktopEntry, HasTheGroupAndItsKeys) {
  const std::string text = DesktopEntryText(kEntry);
  EXPECT_TRUE(text.starts_with("[Desktop Entry]\n"));
  EXPECT_TRUE(text.ends_with("\n"));
  EXPECT_EQ(ValueIn(text, "Type"), "Application");
  EXPECT_EQ(ValueIn(text, "Name"), "Vintoral");
  EXPECT_EQ(ValueIn(text, "Exec"), "\"/usr/bin/vintoral\"");
  EXPECT_EQ(ValueIn(text, "Path"), "/srv/Estación €");
  EXPECT_EQ(ValueIn(text, "Icon"), "/srv/Estación €/Recursos/Vintoral.ico");
  EXPECT_EQ(ValueIn(text, "Terminal"), "false");
}

TEST(DesktopEntry, BlanksNeedTheQuotes) {
  EXPECT_EQ(Exec("/opt/car park/vintoral"), "\"/opt/car park/vintoral\"");
}

// Inside quotes ", `, $ and \ carry a backslash; the value's own escaping then doubles each backslash.
TEST(DesktopEntry, ReservedCharactersAreEscapedTwice) {
  EXPECT_EQ(Exec("/opt/a$b"), R"("/opt/a\\$b")");
  EXPECT_EQ(Exec("/opt/a`b"), R"("/opt/a\\`b")");
  EXPECT_EQ(Exec("/opt/a\"b"), R"("/opt/a\\"b")");
  EXPECT_EQ(Exec("/opt/a\\b"), R"("/opt/a\\\\b")");
}

TEST(DesktopEntry, APercentSignIsNoFieldCode) {
  EXPECT_EQ(Exec("/opt/100%u"), "\"/opt/100%%u\"");
}

TEST(DesktopEntry, ValuesEscapeWhatWouldEndOrChangeThem) {
  EXPECT_EQ(Name("a\nb"), R"(a\nb)");
  EXPECT_EQ(Name("a\tb"), R"(a\tb)");
  EXPECT_EQ(Name("a\rb"), R"(a\rb)");
  EXPECT_EQ(Name("a\\b"), R"(a\\b)");
}

TEST(DesktopEntry, BlanksAtTheStartOfAValueAreKept) {
  EXPECT_EQ(Name("  Vintoral 1"), R"(\s\sVintoral 1)");
}

TEST(DesktopEntry, IsWrittenExecutableAndFound) {
  const TempFolder desktop;
  EXPECT_FALSE(DesktopEntryExists(desktop.Path(), "Vintoral"));
  ASSERT_TRUE(WriteDesktopEntry(desktop.Path(), kEntry));
  EXPECT_TRUE(DesktopEntryExists(desktop.Path(), "Vintoral"));
  EXPECT_EQ(desktop.Get("Vintoral.desktop"), DesktopEntryText(kEntry));
  struct stat status {};
  ASSERT_EQ(stat(desktop.Path("Vintoral.desktop").c_str(), &status), 0);
  EXPECT_NE(status.st_mode & S_IXUSR, 0u);
}

TEST(DesktopEntry, LeavesAFileThatIsThereAlone) {
  const TempFolder desktop;
  desktop.Put("Vintoral.desktop", "the operator's own");
  EXPECT_EQ(WriteDesktopEntry(desktop.Path(), kEntry).Error(), EEXIST);
  EXPECT_EQ(desktop.Get("Vintoral.desktop"), "the operator's own");
}

TEST(DesktopEntry, AMissingDesktopIsMade) {
  const TempFolder folder;
  EXPECT_TRUE(WriteDesktopEntry(folder.Path("home/Escritorio"), kEntry));
  EXPECT_TRUE(DesktopEntryExists(folder.Path("home/Escritorio"), "Vintoral"));
}

TEST(DesktopEntry, ADesktopThatCannotBeMadeFails) {
  const TempFolder folder;
  folder.Put("home", "");
  EXPECT_EQ(WriteDesktopEntry(folder.Path("home/Escritorio"), kEntry).Describe(),
            "make folder " + folder.Path("home/Escritorio") + ": Not a directory");
}

}  // namespace
}  // namespace vintoral
