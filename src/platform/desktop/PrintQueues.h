// The spooler of this system, as far as the printer needs it. The form on CUPS lies in a module of its own,
// which is loaded when it is first asked: its libraries would take a tenth of the time until the window is
// there, and a machine without them prints nothing but runs.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/desktop/SlipLayout.h"

namespace vintoral {

/// How a question to the spooler ended. Without a problem it was answered.
struct QueueAnswer {
  std::string problem;
  /// The spooler was not there, so that it has nothing of what it was asked: asking again does no harm.
  bool again = false;

  bool Good() const { return problem.empty(); }
};

struct QueueNames {
  std::vector<std::string> names;  ///< in the system's order, UTF-8 as all texts here
  std::string standard;            ///< empty where there is none
};

/// One slip as the spooler takes it.
struct QueueJob {
  std::string queue;
  std::string_view pdf;
  PaperSize paper;
  bool own = false;  ///< the paper must be named, for it is not the one that the queue has
};

/// Of one thread. No question takes longer than some seconds, whatever the spooler does.
class PrintQueues {
 public:
  virtual ~PrintQueues() = default;
  virtual QueueAnswer List(QueueNames& names) = 0;
  virtual QueueAnswer PaperOf(const std::string& queue, QueuePaper& paper) = 0;
  /// When this is good, the slip is the spooler's.
  virtual QueueAnswer Hand(const QueueJob& job) = 0;
};

/// `over` is set when the program ends: then whatever is being asked comes to an end within a fraction of a
/// second.
using MakePrintQueues = std::function<std::unique_ptr<PrintQueues>(const std::atomic<bool>& over)>;

/// The queues of CUPS; where that can't be loaded, queues that answer with nothing but the reason.
std::unique_ptr<PrintQueues> LoadCupsQueues(const std::atomic<bool>& over);

}  // namespace vintoral
