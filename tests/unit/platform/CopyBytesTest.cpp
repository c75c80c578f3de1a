#include "platform/CopyBytes.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <string>

#include "platform/Descriptor.h"
#include "support/TempFolder.h"

namespace vintoral {
namespace {

using test::TempFolder;

class CopyBytesTest : public testing::Test {
 protected:
  /// Longer than any piece that is copied at once, and nowhere like itself.
  static std::string Long() {
    std::string bytes((std::size_t{9} << 20) + 4321, ' ');
    unsigned state = 1;
    for (char& byte : bytes) {
      state = state * 1664525 + 1013904223;
      byte = static_cast<char>(state >> 24);
    }
    return bytes;
  }
  Descriptor Open(const char* name, int flags) const {
    return Descriptor(open(folder_.Path(name).c_str(), flags | O_CLOEXEC, 0666));
  }

  TempFolder folder_;
};

TEST_F(CopyBytesTest, CopiesAllBehindWhatStandsThere) {
  const std::string bytes = Long();
  folder_.Put("from", bytes);
  folder_.Put("into", "head");
  const Copied copied = CopyBytes(Open("from", O_RDONLY).Number(), Open("into", O_WRONLY).Number(), 4);
  EXPECT_EQ(copied.error, 0);
  EXPECT_EQ(copied.bytes, bytes.size());
  EXPECT_EQ(folder_.Get("into"), "head" + bytes);
}

TEST_F(CopyBytesTest, ByHandItGoesOnWhereTheSystemStopped) {
  const std::string bytes = Long();
  folder_.Put("from", bytes);
  folder_.Put("into", "head" + bytes.substr(0, 1000));
  const Copied copied = CopyByHand(Open("from", O_RDONLY).Number(), Open("into", O_WRONLY).Number(), 4, 1000);
  EXPECT_EQ(copied.error, 0);
  EXPECT_EQ(copied.bytes, bytes.size());
  EXPECT_EQ(folder_.Get("into"), "head" + bytes);
}

TEST_F(CopyBytesTest, WhatTheSystemCopiesNotIsReadAndWritten) {
  // A file of /proc has no length to copy by.
  folder_.Put("into", "");
  const Descriptor from(open("/proc/version", O_RDONLY | O_CLOEXEC));
  const Copied copied = CopyBytes(from.Number(), Open("into", O_WRONLY).Number(), 0);
  EXPECT_EQ(copied.error, 0);
  EXPECT_GT(copied.bytes, 0u);
  EXPECT_EQ(folder_.Get("into").substr(0, 14), "Linux version ");
}

TEST_F(CopyBytesTest, TellsWhyItCouldNot) {
  folder_.Put("from", "bytes");
  folder_.Put("into", "");
  EXPECT_EQ(CopyBytes(Open("from", O_RDONLY).Number(), Open("into", O_RDONLY).Number(), 0).error, EBADF);
  EXPECT_EQ(CopyBytes(Open("from", O_WRONLY).Number(), Open("into", O_WRONLY).Number(), 0).error, EBADF);
}

TEST_F(CopyBytesTest, AnEmptyFileIsNothing) {
  folder_.Put("from", "");
  folder_.Put("into", "head");
  const Copied copied = CopyBytes(Open("from", O_RDONLY).Number(), Open("into", O_WRONLY).Number(), 4);
  EXPECT_EQ(copied.error, 0);
  EXPECT_EQ(copied.bytes, 0u);
  EXPECT_EQ(folder_.Get("into"), "head");
}

}  // namespace
}  // namespace vintoral
