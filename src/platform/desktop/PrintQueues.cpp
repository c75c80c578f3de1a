#include "platform/desktop/PrintQueues.h"

#include <utility>

#include "platform/modules/Module.h"

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

}  // namespace

std::unique_ptr<PrintQueues> LoadCupsQueues(const std::atomic<bool>& over) {
  const ModuleFunction found = FindInModule("vintoral-cups.so", "MakeCupsQueues");
  if (found.address == nullptr) return std::make_unique<NoQueues>(found.problem);
  const auto make = reinterpret_cast<PrintQueues* (*)(const std::atomic<bool>&)>(found.address);
  return std::unique_ptr<PrintQueues>(make(over));
}

}  // namespace vintoral
