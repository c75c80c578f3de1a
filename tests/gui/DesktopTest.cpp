// The devices of the desktop: clock, single instance, shortcut, other programs, sound.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <chrono>
#include <ctime>

#include "platform/desktop/DesktopClock.h"
#include "platform/desktop/DesktopPlatform.h"
#include "support/TempFolder.h"

namespace vintoral::test {
namespace {

class Desktop : public testing::Test {
 protected:
  Desktop() {
    qputenv("HOME", folder_.Path("home").c_str());
    qunsetenv("XDG_CONFIG_HOME");
  }
  TempFolder folder_;
  const std::string lock_ = folder_.Path("lock");
};

std::string FileOf(std::string_view path) {
  return std::string(path);
}

TEST_F(Desktop, ClockTellsTheLocalTime) {
  const DesktopClock clock;
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  const Civil shown = clock.Now().Parts();
  EXPECT_EQ(shown.year, local.tm_year + 1900);
  EXPECT_EQ(shown.day, local.tm_mday);
  const std::int64_t before = clock.Ticks();
  EXPECT_GE(clock.Ticks(), before);
}

TEST_F(Desktop, OneStationHoldsTheLock) {
  DesktopSystem first(FileOf, lock_);
  EXPECT_EQ(first.CountInstances(), 1);
  EXPECT_EQ(first.CountInstances(), 1);
  DesktopSystem second(FileOf, lock_);
  EXPECT_EQ(second.CountInstances(), 2);
}

TEST_F(Desktop, TheLockIsTheUsersWhateverTheEnvironment) {
  const std::string lock = "/tmp/vintoral-" + std::to_string(getuid()) + ".lock";
  for (const char* runtime : {"", "/run/user/1000", "/nowhere"}) {
    qputenv("XDG_RUNTIME_DIR", runtime);
    qputenv("TMPDIR", runtime);
    EXPECT_EQ(StationLock(), lock);
  }
  qunsetenv("TMPDIR");
}

TEST_F(Desktop, TheLockGoesWithItsHolder) {
  {
    DesktopSystem gone(FileOf, lock_);
    EXPECT_EQ(gone.CountInstances(), 1);
  }
  DesktopSystem next(FileOf, lock_);
  EXPECT_EQ(next.CountInstances(), 1);
}

TEST_F(Desktop, AnotherProcessCounts) {
  DesktopSystem first(FileOf, lock_);
  ASSERT_EQ(first.CountInstances(), 1);
  const pid_t child = fork();
  if (child == 0) {
    DesktopSystem second(FileOf, lock_);
    _exit(second.CountInstances());
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_EQ(WEXITSTATUS(status), 2);
}

TEST_F(Desktop, ShortcutIsADesktopEntry) {
  DesktopSystem system(FileOf);
  EXPECT_FALSE(system.HasShortcut("Vintoral"));
  ASSERT_TRUE(
      system.CreateShortcut({"Vintoral"_w, "/srv/Gate 1\\Recursos\\Vintoral.ico"_w, "/srv/Gate 1"_w}));
  EXPECT_TRUE(system.HasShortcut("Vintoral"));
  const std::string name = "home/Desktop/Vintoral.desktop";
  struct stat status {};
  ASSERT_EQ(stat(folder_.Path(name).c_str(), &status), 0);
  EXPECT_TRUE(status.st_mode & S_IXUSR);
  const std::string text = folder_.Get(name);
  EXPECT_NE(text.find("Exec=\"" + QCoreApplication::applicationFilePath().toStdString() + "\"\n"),
            std::string::npos);
  EXPECT_NE(text.find("\nPath=/srv/Gate 1\n"), std::string::npos);
  EXPECT_NE(text.find("\nIcon=/srv/Gate 1/Recursos/Vintoral.ico\n"), std::string::npos);
  EXPECT_NE(text.find("\nTerminal=false\n"), std::string::npos);
}

TEST_F(Desktop, CommandsNameWhatTheyOpen) {
  EXPECT_EQ(OpenedBy("Notepad.exe Objetos\\Servidor.INI"), "Objetos\\Servidor.INI");
  EXPECT_EQ(OpenedBy("Notepad.exe Vintoral L\xE9"
                     "ame.TXT"),
            "Vintoral L\xE9"
            "ame.TXT");
  EXPECT_EQ(OpenedBy("explorer.EXE Fondos"), "Fondos");
  EXPECT_EQ(OpenedBy("rm -rf /"), "");
}

TEST_F(Desktop, LaunchOpensTheFileOfThisSystem) {
  folder_.Put("Vintoral Léame.TXT", "x");
  folder_.Put("Objetos/Servidor.INI", "\r\n");
  folder_.Put("Objetos/Camara.desktop", "[Desktop Entry]\n");
  DesktopPlatform platform(folder_.Path());
  std::vector<std::string> started;
  platform.System.Start = [&](const std::string& program, const std::vector<std::string>& arguments) {
    started.push_back(program);
    for (const std::string& argument : arguments)
      started.back() += "|" + argument;
    return true;
  };
  platform.System.Launch(
      "Notepad.exe Vintoral L\xE9"
      "ame.TXT");
  platform.System.Launch("Notepad.exe Objetos\\SERVIDOR.ini");
  platform.System.Launch("Explorer.exe Objetos");
  platform.System.Launch("Notepad.exe missing.txt");
  platform.System.Launch("Explorer.exe Objetos\\Camara.desktop");
  EXPECT_EQ(started, (std::vector<std::string>{"xdg-open|" + folder_.Path("Vintoral Léame.TXT"),
                                               "xdg-open|" + folder_.Path("Objetos/Servidor.INI"),
                                               "xdg-open|" + folder_.Path("Objetos"),
                                               "gio|launch|" + folder_.Path("Objetos/Camara.desktop")}));
}

TEST_F(Desktop, AMissingProgramIsPassedOver) {
  folder_.Put("a.txt", "x");
  DesktopPlatform platform(folder_.Path());
  testing::internal::CaptureStderr();
  platform.System.Start = [](const std::string&, const std::vector<std::string>&) { return false; };
  platform.System.Launch("Notepad.exe a.txt");
  EXPECT_NE(testing::internal::GetCapturedStderr().find("a.txt"), std::string::npos);
}

TEST_F(Desktop, NoSoundDeviceDelaysAKey) {
  folder_.Put("Sonidos/Vintoral-5.wav", "no sound at all");
  using Clock = std::chrono::steady_clock;
  const auto begun = Clock::now();
  {
    DesktopPlatform platform(folder_.Path());
    platform.Sound.UseSink("nosuchsink");
    platform.Sound.Begin();
    for (int i = 0; i < 1000; ++i)
      platform.Sound.Play("Sonidos\\Vintoral-5.wav", true);
    constexpr std::chrono::milliseconds kAThousandKeys{500};
    EXPECT_LT(Clock::now() - begun, kAThousandKeys);
  }
  constexpr std::chrono::seconds kWithClosing{3};
  EXPECT_LT(Clock::now() - begun, kWithClosing);
}

TEST_F(Desktop, TheStationWaitsForNoPicture) {
  folder_.Put("mala.jpg", "no picture at all");
  DesktopPlatform platform(folder_.Path());
  const Pictures& pictures = platform.Pictures;
  EXPECT_EQ(pictures.Load(platform.Disk, "mala.jpg").fault, PictureFault::kNoPicture);
  EXPECT_EQ(pictures.Judge(platform.Disk, "mala.jpg"), PictureFault::kNone);
}

}  // namespace
}  // namespace vintoral::test
