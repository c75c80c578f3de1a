// What registers are measured against: their files read with plain system calls.
#pragma once

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <initializer_list>
#include <string>
#include <vector>

namespace vintoral::bench {

/// Open, one read of the whole file into memory that is there already, close.
inline std::size_t ReadWhole(const std::string& path, std::vector<char>& into) {
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  struct stat status {};
  fstat(descriptor, &status);
  into.resize(static_cast<std::size_t>(status.st_size));
  const ssize_t got = read(descriptor, into.data(), into.size());
  close(descriptor);
  return got < 0 ? 0 : static_cast<std::size_t>(got);
}

/// One pass of read over all of them.
inline void ReadAllOf(std::initializer_list<std::string> paths, std::vector<char>& into) {
  into.resize(std::size_t{1} << 20);
  for (const std::string& path : paths) {
    const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    while (read(descriptor, into.data(), into.size()) > 0)
      benchmark::DoNotOptimize(into.data());
    close(descriptor);
  }
}

}  // namespace vintoral::bench
