#include "platform/desktop/PrintQueues.h"

#include <dlfcn.h>

#include <filesystem>
#include <utility>

namespace vintoral {
namespace {

class NoQueues final : public PrintQueues {
 public:
  explicit NoQueues(std::string reason) : reason_(std::move(reason)) {}
  QueueAnswer List(QueueNames&) override { return {reason_}; }
  QueueAnswer PaperOf(const std::string&, QueuePaper&) override { return {reason_}; }
  QueueAnswer Hand(const QueueJob&) override { return {reason_}; }

 private:
  std::string reason_;
};

/// Beside the program, wherever that is.
std::string ModuleFile() {
  std::error_code ignored;
  return std::filesystem::read_symlink("/proc/self/exe", ignored).replace_filename("vintoral-cups.so");
}

std::string LastProblem() {
  const char* const problem = dlerror();
  return problem == nullptr ? "no CUPS" : problem;
}

}  // namespace

std::unique_ptr<PrintQueues> LoadCupsQueues(const std::atomic<bool>& over) {
  // Never unloaded: its libraries keep things of the thread that used them.
  void* const module = dlopen(ModuleFile().c_str(), RTLD_NOW);
  if (module == nullptr) return std::make_unique<NoQueues>(LastProblem());
  const auto make =
      reinterpret_cast<PrintQueues* (*)(const std::atomic<bool>&)>(dlsym(module, "MakeCupsQueues"));
  if (make == nullptr) return std::make_unique<NoQueues>(LastProblem());
  return std::unique_ptr<PrintQueues>(make(over));
}

}  // namespace vintoral
