#include "platform/desktop/DesktopPrinter.h"

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>

namespace vintoral {

namespace {

using std::chrono::milliseconds;
using SteadyClock = std::chrono::steady_clock;

/// How long a caller waits for a fresh list.
constexpr milliseconds kListPatience{100};
/// A spooler that has gone is usually back in no time: until then a slip waits, and those behind it.
constexpr milliseconds kUntilLost{10'000};
constexpr milliseconds kUntilAskedAgain{250};
/// What the end of the program grants to slips that wait, and then to the thread.
constexpr milliseconds kUntilOver{1200};
constexpr milliseconds kUntilLeft{600};
/// More slips than a gate prints while somebody looks for the reason.
constexpr std::size_t kMostWaiting = 100;

String FromUtf8(const std::string& text) {
  return String::FromUtf8(text);
}

PrinterList ListOf(const QueueNames& names) {
  PrinterList list;
  for (const std::string& name : names.names)
    list.names.push_back(FromUtf8(name));
  list.current = FromUtf8(names.standard);
  return list;
}

void ReportLost(const PrintDocument& document, const std::string& reason) {
  const std::string wanted = document.PrinterWanted.ToUtf8();
  const std::string whose = wanted.empty() ? "the standard printer" : wanted;
  std::fprintf(stderr, "print: a slip for %s is lost: %s\n", whose.c_str(), reason.c_str());
}

}  // namespace

/// The thread and what it is asked to do. Shared with the thread, so that it may outlive the station in a
/// share or a spooler that hangs.
class DesktopPrinter::Worker : public std::enable_shared_from_this<Worker> {
 public:
  Worker(SlipFiles files, MakePrintQueues makeQueues)
      : files_(std::move(files)), makeQueues_(std::move(makeQueues)) {}

  void AskForList();
  PrinterList FreshList();
  void Add(PrintDocument document);
  void Stop();

 private:
  void StartThread();
  void Run();
  void ReadList();
  void PrintFirst(std::unique_lock<std::mutex>& lock);
  QueueAnswer Print(const PrintDocument& document);
  QueueAnswer PrintOn(const std::string& queue, const PrintDocument& document);

  const SlipFiles files_;
  const MakePrintQueues makeQueues_;
  std::unique_ptr<PrintQueues> queues_;  ///< of the thread alone
  std::atomic<bool> over_ = false;

  std::mutex mutex_;
  std::condition_variable news_;
  std::deque<PrintDocument> waiting_;  ///< the first one is being printed
  PrinterList list_;
  bool listWanted_ = false;
  std::uint64_t lists_ = 0;  ///< how many have been read
  std::thread thread_;
  bool stopped_ = false;
  bool left_ = false;  ///< nobody is there any more who waits for the thread
};

void DesktopPrinter::Worker::AskForList() {
  const std::lock_guard lock(mutex_);
  listWanted_ = true;
  StartThread();
}

PrinterList DesktopPrinter::Worker::FreshList() {
  std::unique_lock lock(mutex_);
  listWanted_ = true;
  StartThread();
  news_.wait_for(lock, kListPatience, [this, before = lists_] { return lists_ > before; });
  return list_;
}

void DesktopPrinter::Worker::Add(PrintDocument document) {
  const std::lock_guard lock(mutex_);
  if (waiting_.size() >= kMostWaiting) return ReportLost(document, "too many are waiting");
  waiting_.push_back(std::move(document));
  StartThread();
}

void DesktopPrinter::Worker::StartThread() {
  news_.notify_all();
  if (thread_.joinable()) return;
  thread_ = std::thread([self = shared_from_this()] { self->Run(); });
}

void DesktopPrinter::Worker::Stop() {
  std::unique_lock lock(mutex_);
  if (!thread_.joinable()) return;
  news_.wait_for(lock, kUntilOver, [this] { return waiting_.empty(); });
  over_ = true;
  news_.notify_all();
  // The one that is being printed tells of itself, unless its thread hangs.
  left_ = !news_.wait_for(lock, kUntilLeft, [this] { return stopped_; });
  for (const PrintDocument& document : waiting_)
    ReportLost(document, "the program ended");
  waiting_.clear();
  if (left_) return thread_.detach();
  thread_.join();  // what the toolkit keeps of a thread goes before the toolkit
}

void DesktopPrinter::Worker::Run() {
  queues_ = makeQueues_(over_);
  std::unique_lock lock(mutex_);
  while (!over_) {
    news_.wait(lock, [this] { return over_ || listWanted_ || !waiting_.empty(); });
    if (over_) break;
    if (std::exchange(listWanted_, false)) {
      lock.unlock();
      ReadList();
      lock.lock();
    } else {
      PrintFirst(lock);
    }
  }
  stopped_ = true;
  news_.notify_all();
}

void DesktopPrinter::Worker::ReadList() {
  QueueNames names;
  const bool good = queues_->List(names).Good();
  const std::lock_guard lock(mutex_);
  if (good) list_ = ListOf(names);
  ++lists_;
  news_.notify_all();
}

void DesktopPrinter::Worker::PrintFirst(std::unique_lock<std::mutex>& lock) {
  const PrintDocument document = waiting_.front();
  lock.unlock();
  const SteadyClock::time_point end = SteadyClock::now() + kUntilLost;
  QueueAnswer answer = Print(document);
  lock.lock();
  while (answer.again && !over_ && SteadyClock::now() < end) {
    news_.wait_for(lock, kUntilAskedAgain, [this] { return over_.load(); });
    lock.unlock();
    answer = Print(document);
    lock.lock();
  }
  if (left_) return;
  if (!answer.Good()) ReportLost(document, answer.problem);
  waiting_.pop_front();
  news_.notify_all();
}

QueueAnswer DesktopPrinter::Worker::Print(const PrintDocument& document) {
  QueueNames names;
  if (QueueAnswer answer = queues_->List(names); !answer.Good()) return answer;
  const String wanted = ChoosePrinter(ListOf(names), document.PrinterWanted);
  // By its own name: one that Windows-1252 can't hold is another text.
  for (const std::string& name : names.names) {
    if (FromUtf8(name) == wanted) return PrintOn(name, document);
  }
  return {"there is no such printer, and no standard one"};
}

QueueAnswer DesktopPrinter::Worker::PrintOn(const std::string& queue, const PrintDocument& document) {
  QueuePaper paper;
  if (QueueAnswer answer = queues_->PaperOf(queue, paper); !answer.Good()) return answer;
  const SlipLayout layout = LayOut(document, paper);
  if (layout.pages.empty()) return {};
  const SlipMaterial material = Gather(document, files_);
  // A share may have kept this thread waiting until the toolkit has gone, which draws.
  if (over_) return {"the program ended"};
  const QByteArray pdf = DrawSlip(layout, material);
  return queues_->Hand({.queue = queue,
                        .pdf = {pdf.data(), static_cast<std::size_t>(pdf.size())},
                        .paper = layout.paper,
                        .own = layout.own});
}

DesktopPrinter::DesktopPrinter(SlipFiles files, MakePrintQueues makeQueues)
    : worker_(std::make_shared<Worker>(std::move(files), std::move(makeQueues))) {}

DesktopPrinter::~DesktopPrinter() {
  worker_->Stop();
}

PrinterList DesktopPrinter::Printers() {
  return worker_->FreshList();
}

void DesktopPrinter::EndDoc(PrintDocument document) {
  worker_->Add(std::move(document));
}

void DesktopPrinter::Begin() {
  worker_->AskForList();
}

}  // namespace vintoral
