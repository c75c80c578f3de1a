#include "platform/PosixFile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <set>

#include "platform/PosixDisk.h"
#include "records/ArchivosNuevos.h"
#include "records/Register.h"
#include "records/RegistroFicha.h"
#include "support/TempFolder.h"

namespace vintoral {
namespace {

using test::TempFolder;

class PosixFileTest : public testing::Test {
 protected:
  std::unique_ptr<DiskFile> Open(OpenMode mode = OpenMode::kReadWrite) {
    return disk_.Open("file", mode).Take();
  }
  off_t LengthOnDisk() const {
    struct stat status {};
    stat(folder_.Path("file").c_str(), &status);
    return status.st_size;
  }

  TempFolder folder_;
  PosixDisk disk_{folder_.Path()};
};

TEST_F(PosixFileTest, ReadsAndWritesAtAnOffset) {
  folder_.Put("file", "0123456789");
  const auto file = Open();
  EXPECT_TRUE(file->WriteAt(3, std::string_view("abc")));
  EXPECT_TRUE(file->WriteAt(10, std::string_view("XY")));
  EXPECT_EQ(file->Length(), 12u);
  std::array<char, 5> bytes{};
  EXPECT_EQ(file->ReadAt(2, bytes), 5u);
  EXPECT_EQ(std::string(bytes.data(), 5), "2abc6");
  EXPECT_EQ(file->ReadAt(10, bytes), 2u);
  EXPECT_EQ(file->ReadAt(12, bytes), 0u);
  EXPECT_EQ(file->ReadAt(std::uint64_t{1} << 40, bytes), 0u);
  EXPECT_EQ(folder_.Get("file"), "012abc6789XY");
}

TEST_F(PosixFileTest, OffsetThatTheSystemLacksFails) {
  folder_.Put("file", "0123");
  std::array<char, 5> bytes{};
  EXPECT_EQ(Open()->ReadAt(~std::uint64_t{0}, bytes).Why().Describe(),
            "read " + folder_.Path("file") + ": Invalid argument");
  EXPECT_FALSE(Open()->WriteAt(~std::uint64_t{0}, bytes));
}

TEST_F(PosixFileTest, FileOpenForReadingIsNotWritten) {
  folder_.Put("file", "0123");
  const auto file = Open(OpenMode::kRead);
  EXPECT_FALSE(file->WriteAt(0, std::string_view("x")));
  file->LockAppend();  // no lock for readers, and no wait
  file->UnlockAppend();
  EXPECT_EQ(folder_.Get("file"), "0123");
}

TEST_F(PosixFileTest, SyncOfANewFileIsDone) {
  const auto file = Open(OpenMode::kCreate);
  EXPECT_TRUE(file->WriteAt(0, std::string_view("x")));
  EXPECT_TRUE(file->Sync());
  EXPECT_TRUE(file->Sync());
}

TEST_F(PosixFileTest, ReserveMakesRoomAndKeepsTheLength) {
  folder_.Put("file", "0123");
  const auto file = Open();
  EXPECT_TRUE(file->Reserve(1 << 20));
  EXPECT_EQ(file->Length(), 4u);
  EXPECT_TRUE(file->Reserve(2));
  EXPECT_EQ(folder_.Get("file"), "0123");
}

/// Files of this process end at so many bytes while this lives: the kernel writes what fits and then refuses.
class FileLimit {
 public:
  explicit FileLimit(rlim_t bytes) : oldHandler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &old_);
    const rlimit limit{bytes, old_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileLimit() {
    setrlimit(RLIMIT_FSIZE, &old_);
    std::signal(SIGXFSZ, oldHandler_);
  }
  FileLimit(const FileLimit&) = delete;
  FileLimit& operator=(const FileLimit&) = delete;

 private:
  rlimit old_{};
  void (*oldHandler_)(int);
};

TEST_F(PosixFileTest, WriteThatStopsHalfwayFails) {
  const auto file = Open(OpenMode::kCreate);
  {
    const FileLimit limit(100);
    EXPECT_EQ(file->WriteAt(0, std::string(188, 'x')).Error(), EFBIG);
  }
  EXPECT_EQ(folder_.Get("file"), std::string(100, 'x'));
}

TEST_F(PosixFileTest, ReplaceThatStopsHalfwayLeavesTheOldFileAlone) {
  folder_.Put("file", "old");
  {
    const FileLimit limit(100);
    EXPECT_EQ(disk_.Replace("file", std::string(188, 'x')).Error(), EFBIG);
  }
  EXPECT_EQ(folder_.Get("file"), "old");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.Path()), {}), 1);
}

TEST_F(PosixFileTest, ReplacementThatStopsHalfwayLeavesTheOldFileAlone) {
  const std::string old(188, 'o');
  folder_.Put("file", old);
  // In the text ahead, in the copy, in the text behind.
  for (const rlim_t room : {5U, 100U, 200U}) {
    const FileLimit limit(room);
    const std::unique_ptr<Replacement> longer = disk_.BeginReplacement("file");
    longer->PutAround("before the ", " and behind");
    EXPECT_EQ(longer->Commit().Error(), EFBIG) << room;
  }
  EXPECT_EQ(folder_.Get("file"), old);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.Path()), {}), 1);
}

TEST_F(PosixFileTest, AppendThatStopsHalfwayIsOverwrittenByTheNext) {
  folder_.Put("file", HstNuevo().Bytes());
  Register<RegistroFicha> hst(disk_, "file", OpenMode::kReadWrite);
  const auto row = [](std::int64_t number) {
    RegistroFicha ficha;
    ficha.Posicion = static_cast<std::int32_t>(number);
    return ficha;
  };
  {
    const FileLimit limit(200);
    EXPECT_EQ(hst.Append(row).Error(), EFBIG);
  }
  EXPECT_EQ(LengthOnDisk(), 200);
  EXPECT_TRUE(hst.Append(row));
  EXPECT_EQ(LengthOnDisk(), 376);
  EXPECT_EQ(hst.Read(2)->Posicion, 2);
}

TEST_F(PosixFileTest, LockIsWaitedForAndThenDoneWithout) {
  folder_.Put("file", "");
  const auto first = Open();
  const auto second = Open();
  first->LockAppend();
  const auto begin = std::chrono::steady_clock::now();
  second->LockAppend();
  const auto waited = std::chrono::steady_clock::now() - begin;
  EXPECT_GE(waited, std::chrono::milliseconds(99));
  EXPECT_LT(waited, std::chrono::seconds(2));
  second->UnlockAppend();  // holds nothing, and so frees nothing
  const auto again = std::chrono::steady_clock::now();
  second->LockAppend();
  EXPECT_GE(std::chrono::steady_clock::now() - again, std::chrono::milliseconds(99));
}

TEST_F(PosixFileTest, LockIsFreeAfterUnlockAndAfterClosing) {
  folder_.Put("file", "");
  auto first = Open();
  first->LockAppend();
  first->UnlockAppend();
  const auto second = Open();
  const auto begin = std::chrono::steady_clock::now();
  second->LockAppend();
  second->UnlockAppend();
  first->LockAppend();
  first.reset();
  second->LockAppend();
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(99));
}

TEST_F(PosixFileTest, LockKeepsNobodyFromReadingAndWriting) {
  folder_.Put("file", "0123");
  const auto first = Open();
  first->LockAppend();
  const auto second = Open();
  EXPECT_TRUE(second->WriteAt(0, std::string_view("x")));
  std::array<char, 1> byte{};
  EXPECT_EQ(second->ReadAt(0, byte), 1u);
}

/// What a station of its own does in this test: `count` rows whose gate and number tell who wrote them.
void AppendRows(const std::string& folder, const char* gate, int count) {
  PosixDisk disk(folder);
  for (int i = 1; i <= count; ++i) {
    Register<RegistroFicha> hst(disk, "Vintoral.HST", OpenMode::kReadWrite);
    const Outcome appended = hst.Append([&](std::int64_t row) {
      RegistroFicha ficha;
      ficha.EnUso = true;
      ficha.PorteriaSalida = gate;
      ficha.Posicion = static_cast<std::int32_t>(row);
      ficha.UsuarioPuntos = i;
      return ficha;
    });
    if (!appended) _exit(1);
  }
  _exit(0);
}

TEST(AppendLock, TwoStationsLoseNoRow) {
  constexpr int kRows = 200;
  const TempFolder folder;
  folder.Put("Vintoral.HST", HstNuevo().Bytes());
  std::array<pid_t, 2> stations{};
  for (std::size_t i = 0; i < stations.size(); ++i) {
    stations[i] = fork();
    if (stations[i] == 0) AppendRows(folder.Path(), i == 0 ? "01" : "02", kRows);
  }
  for (const pid_t station : stations) {
    int status = -1;
    waitpid(station, &status, 0);
    EXPECT_EQ(status, 0);
  }
  PosixDisk disk(folder.Path());
  const Register<RegistroFicha> hst(disk, "Vintoral.HST", OpenMode::kRead);
  EXPECT_EQ(folder.Get("Vintoral.HST").size(), (1 + 2 * kRows) * 188u);
  std::set<std::pair<String, int>> rows;
  EXPECT_TRUE(hst.Walk(2, *hst.Count(), [&](std::int64_t number, const RegistroFicha& ficha) {
    EXPECT_TRUE(ficha.EnUso);
    EXPECT_EQ(ficha.Posicion, number);
    rows.emplace(ficha.PorteriaSalida.Trimmed(), ficha.UsuarioPuntos);
    return true;
  }));
  EXPECT_EQ(rows.size(), 2u * kRows);
}

TEST(PosixFile, IsCutUnderTheAppendLockAlone) {
  const test::TempFolder folder;
  folder.Put("register", "0123456789");
  PosixDisk disk(folder.Path());
  const std::unique_ptr<DiskFile> file = disk.Open("register", OpenMode::kReadWrite).Take();
  EXPECT_EQ(file->Cut(4).Error(), ENOLCK);
  EXPECT_EQ(folder.Get("register"), "0123456789");
  file->LockAppend();
  EXPECT_TRUE(file->Cut(4));
  file->UnlockAppend();
  EXPECT_EQ(folder.Get("register"), "0123");
  EXPECT_EQ(file->Cut(2).Error(), ENOLCK);
  EXPECT_EQ(folder.Get("register"), "0123");
}

}  // namespace
}  // namespace vintoral
