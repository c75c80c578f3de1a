// What becomes of slips when the spooler does not answer. The spooler is one of the tests' own;
// tests/services has the real one.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "Papers.h"
#include "platform/desktop/DesktopPrinter.h"

namespace vintoral::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

/// What the tests say of a spooler, and what it was given.
struct Spooler {
  std::mutex mutex;
  std::condition_variable news;
  QueueNames names{{"first", "second"}, "second"};
  bool hangs = false;     ///< until `over`, as a connection does that waits
  bool hangsFor = false;  ///< whatever happens
  int lists = 0;
  int unreached = 0;              ///< so many questions find nobody
  std::string refusal;            ///< of jobs
  std::vector<std::string> jobs;  ///< queue and length of the paper
  std::vector<std::string> texts;
};

class Queues final : public PrintQueues {
 public:
  Queues(Spooler& spooler, const std::atomic<bool>& over) : spooler_(spooler), over_(over) {}

  QueueAnswer List(QueueNames& names) override {
    std::unique_lock lock(spooler_.mutex);
    if (QueueAnswer answer = Wait(lock); !answer.Good()) return answer;
    names = spooler_.names;
    ++spooler_.lists;
    spooler_.news.notify_all();
    return {};
  }
  QueueAnswer PaperOf(const std::string& /*queue*/, QueuePaper& paper) override {
    paper = Roll(80, 4);
    return {};
  }
  QueueAnswer Hand(const QueueJob& job) override {
    const std::lock_guard lock(spooler_.mutex);
    spooler_.jobs.push_back(job.queue + " " + std::to_string(std::lround(job.paper.length)));
    spooler_.news.notify_all();
    return {spooler_.refusal};
  }

 private:
  QueueAnswer Wait(std::unique_lock<std::mutex>& lock) {
    while ((spooler_.hangs && !over_) || spooler_.hangsFor)
      spooler_.news.wait_for(lock, std::chrono::milliseconds(10));
    if (over_) return {"silent", true};
    if (spooler_.unreached == 0) return {};
    --spooler_.unreached;
    return {"nobody there", true};
  }

  Spooler& spooler_;
  const std::atomic<bool>& over_;
};

class Handed : public testing::Test {
 protected:
  Handed() {
    printer_ = std::make_unique<DesktopPrinter>(NoFiles(), [this](const std::atomic<bool>& over) {
      return std::make_unique<Queues>(spooler_, over);
    });
    // From the start: the thread may tell of a slip before the test's next line.
    testing::internal::CaptureStderr();
  }
  ~Handed() override {
    Change([this] { spooler_.hangs = spooler_.hangsFor = false; });
    printer_.reset();
    testing::internal::GetCapturedStderr();
  }

  template <class Work>
  void Change(Work work) {
    const std::lock_guard lock(spooler_.mutex);
    work();
    spooler_.news.notify_all();
  }
  /// The jobs of the spooler, once there are so many.
  std::vector<std::string> Jobs(std::size_t count) {
    std::unique_lock lock(spooler_.mutex);
    spooler_.news.wait_for(lock, std::chrono::seconds(20), [&] { return spooler_.jobs.size() >= count; });
    return spooler_.jobs;
  }
  /// What stands on standard error since the last call.
  static std::string Told() {
    const std::string told = testing::internal::GetCapturedStderr();
    testing::internal::CaptureStderr();
    return told;
  }
  /// Ends the printer, and gives the lines on standard error.
  std::vector<std::string> End() {
    printer_.reset();
    std::istringstream errors(Told());
    std::vector<std::string> lines;
    for (std::string line; std::getline(errors, line);)
      lines.push_back(line);
    return lines;
  }
  template <class Work>
  static double Milliseconds(Work work) {
    const auto begun = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begun).count();
  }

  Spooler spooler_;
  std::unique_ptr<DesktopPrinter> printer_;
};

/// Known again by its length.
PrintDocument Slip(int lines, const String& printer = {}) {
  PrintDocument document = Lines(lines, 10);
  document.PrinterWanted = printer;
  return document;
}

std::string LengthOf(int lines) {
  return std::to_string(std::lround(std::ceil(Slip(lines).Height() / 20.0)));
}

TEST_F(Handed, InTheirOrderToTheirPrinters) {
  printer_->EndDoc(Slip(30));
  printer_->EndDoc(Slip(10, " FIRST "_w));
  printer_->EndDoc(Slip(20, "elsewhere"_w));
  EXPECT_THAT(Jobs(3),
              ElementsAre("second " + LengthOf(30), "first " + LengthOf(10), "second " + LengthOf(20)));
  EXPECT_THAT(End(), SizeIs(0));
}

TEST_F(Handed, ToAPrinterWhoseNameTheStationCantHold) {
  Change([this] { spooler_.names = {{"Caja ☆"}, "Caja ☆"}; });
  EXPECT_THAT(printer_->Printers().names, ElementsAre("Caja ?"_w));
  printer_->EndDoc(Slip(10, "Caja ?"_w));
  EXPECT_THAT(Jobs(1), ElementsAre("Caja ☆ " + LengthOf(10)));
}

TEST_F(Handed, NothingOfAnEmptySlip) {
  printer_->EndDoc(PrintDocument());
  printer_->EndDoc(Slip(10));
  EXPECT_THAT(Jobs(1), SizeIs(1));
  EXPECT_THAT(End(), SizeIs(0));
}

TEST_F(Handed, LostWithoutAPrinter) {
  Change([this] { spooler_.names = {}; });
  printer_->EndDoc(Slip(10, "gone"_w));
  EXPECT_THAT(End(), ElementsAre(AllOf(HasSubstr("gone"), HasSubstr("is lost"))));
}

TEST_F(Handed, OnceMoreToASpoolerThatWasNotThere) {
  Change([this] { spooler_.unreached = 2; });
  printer_->EndDoc(Slip(10));
  EXPECT_THAT(Jobs(1), SizeIs(1));
  EXPECT_THAT(End(), SizeIs(0));
}

TEST_F(Handed, NeverTwice) {
  Change([this] { spooler_.refusal = "no answer"; });
  printer_->EndDoc(Slip(10));
  printer_.reset();
  EXPECT_THAT(Told(), HasSubstr("is lost: no answer"));
  EXPECT_THAT(spooler_.jobs, SizeIs(1));
}

TEST_F(Handed, NobodyWaitsForASpoolerThatHangs) {
  EXPECT_THAT(printer_->Printers().names, SizeIs(2));
  Change([this] { spooler_.hangs = true; });
  EXPECT_LT(Milliseconds([this] { printer_->EndDoc(Slip(10)); }), 50);
  PrinterList list;
  EXPECT_LT(Milliseconds([&] { list = printer_->Printers(); }), 200);
  EXPECT_THAT(list.names, SizeIs(2)) << "what is known stays known";
  EXPECT_EQ(list.current, "second"_w);
  Change([this] { spooler_.hangs = false; });
  EXPECT_THAT(Jobs(1), SizeIs(1));
}

TEST_F(Handed, TheListIsKnownBeforeSomebodyAsks) {
  printer_->Begin();
  {
    std::unique_lock lock(spooler_.mutex);
    ASSERT_TRUE(
        spooler_.news.wait_for(lock, std::chrono::seconds(20), [this] { return spooler_.lists > 0; }));
    spooler_.hangs = true;
  }
  EXPECT_THAT(printer_->Printers().names, SizeIs(2));
}

TEST_F(Handed, TheEndWaitsShortlyForASpoolerThatHangs) {
  for (const bool forGood : {false, true}) {
    Change([&] { (forGood ? spooler_.hangsFor : spooler_.hangs) = true; });
    auto printer = std::make_shared<DesktopPrinter>(NoFiles(), [this](const std::atomic<bool>& over) {
      return std::make_unique<Queues>(spooler_, over);
    });
    printer->EndDoc(Slip(10));
    printer->EndDoc(Slip(10));
    printer_.reset();
    EXPECT_LT(Milliseconds([&] { printer.reset(); }), 2000);
    const std::string errors = Told();
    EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 2) << errors;
    Change([&] { spooler_.hangs = spooler_.hangsFor = false; });
  }
  // The thread that was left behind finds nobody, and tells nothing more.
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  EXPECT_EQ(Told(), "");
  EXPECT_THAT(spooler_.jobs, SizeIs(0));
}

TEST_F(Handed, WhatWaitsAtTheEndIsHandedOver) {
  for (int i = 0; i < 20; ++i)
    printer_->EndDoc(Slip(10));
  std::vector<std::string> errors;
  EXPECT_LT(Milliseconds([&] { errors = End(); }), 1000) << "and no longer is waited for them";
  EXPECT_THAT(errors, SizeIs(0));
  EXPECT_THAT(spooler_.jobs, SizeIs(20));
}

TEST_F(Handed, NoMoreThanSoManyWait) {
  Change([this] { spooler_.hangs = true; });
  for (int i = 0; i < 102; ++i)
    printer_->EndDoc(Slip(10));
  const std::string errors = Told();
  EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 2) << errors;
  Change([this] { spooler_.hangs = false; });
  EXPECT_THAT(Jobs(100), SizeIs(100));
}

TEST(PrinterModule, IsBesideTheProgram) {
  // Nobody listens there: what answers is CUPS.
  qputenv("CUPS_SERVER", "127.0.0.1:1");
  const std::atomic<bool> over = false;
  QueueNames names;
  const QueueAnswer answer = LoadCupsQueues(over)->List(names);
  qunsetenv("CUPS_SERVER");
  EXPECT_THAT(answer.problem, HasSubstr("no CUPS: "));
  EXPECT_TRUE(answer.again);
}

}  // namespace
}  // namespace vintoral::test
