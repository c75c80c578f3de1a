#pragma once

#include <mutex>
#include <string>

#include "Rules.h"

namespace hanging {

/// The Unix socket on which lines come in and answers go out. Any number of clients at once; when the last
/// one has gone, nobody could let the operations go on that wait, so they do by themselves.
class Control {
 public:
  /// Listens from here on. Throws std::runtime_error where it can't.
  Control(std::string path, Rules& rules);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  /// Takes clients in, each in a thread of its own, until the process ends.
  void Serve();
  const std::string& Path() const { return path_; }

 private:
  void Talk(int client);
  void Left();

  std::string path_;
  Rules& rules_;
  int listening_;
  std::mutex mutex_;
  int clients_ = 0;
};

}  // namespace hanging
