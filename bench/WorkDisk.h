// A disk in a folder of its own below the system's for temporary files, which goes with it.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

#include "platform/PosixDisk.h"

namespace vintoral::bench {

class WorkDisk {
 public:
  WorkDisk() : disk_(Make()) {}
  WorkDisk(const WorkDisk&) = delete;
  WorkDisk& operator=(const WorkDisk&) = delete;
  ~WorkDisk() {
    std::error_code ignored;
    std::filesystem::remove_all(disk_.CurrentFolder().ToUtf8(), ignored);
  }
  PosixDisk& disk() { return disk_; }

 private:
  static std::string Make() {
    std::string name = (std::filesystem::temp_directory_path() / "vintoral-bench-XXXXXX").string();
    return mkdtemp(name.data()) ? name : "/nonexistent";
  }
  PosixDisk disk_;
};

}  // namespace vintoral::bench
