// The window toolkit as a station wants it, and with the station's look.
#pragma once

#include <QApplication>
#include <thread>

namespace vintoral {

/// What is done before the toolkit starts. Reading which fonts the system has takes a seventh of the time
/// until the window stands, so a thread does it beside the toolkit's own start. That takes a launcher's
/// variable out of the environment meanwhile: at worst the thread overlooks another one, and a font of the
/// user's own.
class BeforeToolkit {
 protected:
  BeforeToolkit();
  BeforeToolkit(const BeforeToolkit&) = delete;
  BeforeToolkit& operator=(const BeforeToolkit&) = delete;
  ~BeforeToolkit();
  /// The fonts are known.
  void Wait();

 private:
  std::thread fonts_;
};

class Toolkit : private BeforeToolkit, public QApplication {
 public:
  /// Both as main() has them; `argc` outlives this.
  Toolkit(int& argc, char** argv);
};

}  // namespace vintoral
