// Slips on their way to the paper: where everything comes to stand, what is drawn, and what becomes of them
// when the spooler does not answer. The spooler is one of the tests' own; tests/services has the real one.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QProcess>
#include <QRegularExpression>
#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "platform/desktop/DesktopPrinter.h"
#include "support/TempFolder.h"

namespace vintoral::test {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

constexpr double Millimetres(double millimetres) {
  return millimetres / 25.4 * 72;
}

/// A roll that is cut where a slip ends.
QueuePaper Roll(double width, double blankAtSides) {
  const double side = Millimetres(blankAtSides);
  return {.standard = {Millimetres(width), Millimetres(200)},
          .margins = {.left = side, .right = side},
          .sizes = {},
          .shortest = 36,
          .longest = Millimetres(3000)};
}

QueuePaper A4() {
  return {.standard = {595.28, 841.89},
          .margins = {.left = 18, .right = 18, .top = 36, .bottom = 36},
          .sizes = {}};
}

PrintDocument Lines(int count, double size = 10.5, std::size_t columns = 31) {
  PrintDocument document;
  document.FontSize = size;
  for (int i = 0; i < count; ++i)
    document.Print(String(columns, 'x'));
  return document;
}

TEST(SlipLayout, ARollIsAsLongAsTheSlip) {
  const PrintDocument document = Lines(20);
  const SlipLayout layout = LayOut(document, Roll(80, 4));
  EXPECT_EQ(layout.paper.width, 226);
  EXPECT_EQ(layout.paper.length, std::ceil(document.Height() / 20.0));
  EXPECT_TRUE(layout.own);
  EXPECT_EQ(layout.scale, 1);
  EXPECT_DOUBLE_EQ(layout.left, Millimetres(4));
  ASSERT_THAT(layout.pages, SizeIs(1));
  EXPECT_THAT(layout.pages[0].items, SizeIs(20));
}

TEST(SlipLayout, MarginsOfARollComeOnTop) {
  QueuePaper roll = Roll(80, 4);
  roll.margins.top = 10;
  roll.margins.bottom = 20;
  const PrintDocument document = Lines(20);
  const SlipLayout layout = LayOut(document, roll);
  EXPECT_EQ(layout.paper.length, std::ceil(document.Height() / 20.0 + 30));
  EXPECT_EQ(layout.top, 10);
  EXPECT_THAT(layout.pages, SizeIs(1));
}

TEST(SlipLayout, ARollTakesNoLengthBeyondItsLimits) {
  EXPECT_EQ(LayOut(Lines(1), Roll(80, 4)).paper.length, 36);
  QueuePaper roll = Roll(80, 4);
  roll.longest = 300.7;
  const SlipLayout layout = LayOut(Lines(100), roll);
  EXPECT_EQ(layout.paper.length, 300);
  EXPECT_THAT(layout.pages, SizeIs(4));
}

TEST(SlipLayout, WhatIsWiderThanThePaperIsMadeSmaller) {
  // 31 columns of 0.6 are 195.3 points, and 48 mm are 136.06.
  const PrintDocument document = Lines(20);
  const SlipLayout layout = LayOut(document, Roll(58, 5));
  EXPECT_NEAR(layout.scale, 136.06 / 195.3, 1e-4);
  EXPECT_NEAR(layout.paper.length, document.Height() / 20.0 * layout.scale, 1);
  EXPECT_THAT(layout.pages, SizeIs(1));
  EXPECT_EQ(LayOut(Lines(20, 5), Roll(58, 5)).scale, 1) << "and nothing is made larger";
}

TEST(SlipLayout, ThePaperOfCertainLengthsThatTakesTheSlip) {
  QueuePaper roll = Roll(80, 4);
  roll.longest = 0;
  roll.sizes = {{226.77, 283}, {226.77, 842}, {226.77, 566.93}, {300, 300}, {164, 500}};
  const auto lengthOf = [&](int lines) { return LayOut(Lines(lines), roll).paper.length; };
  EXPECT_EQ(lengthOf(20), 283);
  roll.sizes[0].length = Lines(20).Height() / 20.0;
  EXPECT_EQ(lengthOf(20), roll.sizes[0].length) << "to the last dot";
  roll.sizes[0].length = 283;
  EXPECT_DOUBLE_EQ(lengthOf(30), roll.standard.length);
  EXPECT_EQ(lengthOf(60), 842);
  EXPECT_EQ(lengthOf(200), 842);
  EXPECT_FALSE(LayOut(Lines(30), roll).own);
  EXPECT_TRUE(LayOut(Lines(60), roll).own);
}

TEST(SlipLayout, ASheetStaysAsItIs) {
  const SlipLayout layout = LayOut(Lines(20), A4());
  EXPECT_EQ(layout.paper, A4().standard);
  EXPECT_FALSE(layout.own);
  EXPECT_EQ(layout.left, 18);
  EXPECT_EQ(layout.top, 36);
  EXPECT_EQ(layout.scale, 1);
}

TEST(SlipLayout, ALongSlipGoesOnOverSheets) {
  const PrintDocument document = Lines(150);
  const SlipLayout layout = LayOut(document, A4());
  // 769.89 points take 64 lines of 11.9.
  ASSERT_THAT(layout.pages, SizeIs(3));
  EXPECT_THAT(layout.pages[0].items, SizeIs(64));
  EXPECT_THAT(layout.pages[1].items, SizeIs(64));
  EXPECT_THAT(layout.pages[2].items, SizeIs(22));
  EXPECT_EQ(layout.pages[1].top, layout.pages[1].items[0].y);
}

TEST(SlipLayout, APictureTallerThanASheetHasItsOwn) {
  PrintDocument document = Lines(2);
  document.PaintPicture(Picture("a.jpg"_w), 0, document.CurrentY, 2000, 900 * 20);
  document.CurrentY += 900 * 20;
  document.Print("below"_w);
  const SlipLayout layout = LayOut(document, A4());
  ASSERT_THAT(layout.pages, SizeIs(3));
  EXPECT_THAT(layout.pages[1].items, SizeIs(1));
  EXPECT_EQ(layout.pages[2].items[0].line, "below");
}

TEST(SlipLayout, LinesOfOneTextStandBelowOneAnother) {
  PrintDocument document;
  document.FontSize = 10;
  document.CurrentX = 100;
  document.Print("one\r\n\r\nthree"_w);
  const SlipLayout layout = LayOut(document, A4());
  ASSERT_THAT(layout.pages, SizeIs(1));
  const std::vector<SlipItem>& items = layout.pages[0].items;
  ASSERT_THAT(items, SizeIs(3));
  EXPECT_EQ(items[0].x, 100);
  EXPECT_EQ(items[2].x, 0);
  EXPECT_EQ(items[2].line, "three");
  EXPECT_EQ(items[2].y, 2 * LinePitch(fuente::kTexto, 10));
}

TEST(SlipLayout, BarsHaveTheirTypeOnlyWhileItIsThere) {
  PrintDocument document;
  const auto bars = [&] {
    document.FontName = String(fuente::kBarras);
    document.Print("*A*"_w);
  };
  bars();
  document.AddFontResource("Fuentes\\Vintoral.ttf");
  bars();
  document.FontName = String(fuente::kTexto);
  document.Print("A"_w);
  document.RemoveFontResource("Fuentes\\Vintoral.ttf");
  bars();
  std::vector<std::string> files;
  const SlipLayout layout = LayOut(document, A4());
  for (const SlipItem& item : layout.pages[0].items)
    files.emplace_back(item.barsFile);
  EXPECT_THAT(files, ElementsAre("", "Fuentes\\Vintoral.ttf", "", ""));
}

TEST(SlipLayout, AQueueThatTellsNothingOfItsPaperHasSheets) {
  const SlipLayout layout = LayOut(Lines(20), {.margins = {}, .sizes = {}});
  EXPECT_EQ(layout.paper, (PaperSize{595, 842}));
  EXPECT_EQ(layout.scale, 1);
  EXPECT_FALSE(layout.own);
}

TEST(SlipLayout, NothingOnItGivesNoPage) {
  EXPECT_THAT(LayOut(PrintDocument(), A4()).pages, SizeIs(0));
  EXPECT_THAT(LayOut(PrintDocument(), Roll(80, 4)).pages, SizeIs(0));
}

// --- What is drawn
// ---------------------------------------------------------------------------------------------

struct Word {
  double left, top;
  QString text;
};

SlipFiles NoFiles() {
  return {[](std::string_view path) { return std::string(path); },
          [](std::string_view, const PicturePlace&) {
            return DecodedPicture{.pixels = nullptr, .fault = PictureFault::kNotRead};
          }};
}

class Drawn : public testing::Test {
 protected:
  QByteArray Draw(const PrintDocument& document, const QueuePaper& paper) const {
    return DrawSlip(LayOut(document, paper), Gather(document, NoFiles()));
  }
  /// As an independent reader finds them.
  std::vector<Word> WordsOf(const QByteArray& pdf) const {
    folder_.Put("slip.pdf", pdf.toStdString());
    QProcess reader;
    reader.start(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), File("slip.pdf"), File("words")});
    reader.waitForFinished();
    const QRegularExpression word(
        QString::fromLatin1(R"#(<word xMin="(.*?)" yMin="(.*?)".*?>(.*?)</word>)#"));
    std::vector<Word> words;
    auto found = word.globalMatch(QString::fromStdString(folder_.Get("words")));
    while (found.hasNext()) {
      const QRegularExpressionMatch match = found.next();
      words.push_back({match.captured(1).toDouble(), match.captured(2).toDouble(), match.captured(3)});
    }
    return words;
  }
  QString File(const char* name) const { return QString::fromStdString(folder_.Path(name)); }

  TempFolder folder_;
};

TEST_F(Drawn, LettersStandInTheColumnsOfWhateverType) {
  for (const char* const family : {"Courier New", "DejaVu Sans", "DejaVu Sans Mono", "No such type"}) {
    for (const bool bold : {false, true}) {
      PrintDocument document;
      document.FontName = String(std::string(family));
      document.FontBold = bold;
      document.FontSize = 10;
      document.Print("W i W i W i"_w);
      const std::vector<Word> words = WordsOf(Draw(document, A4()));
      ASSERT_THAT(words, SizeIs(6)) << family;
      for (std::size_t i = 0; i < words.size(); ++i) {
        const double cell = 18 + static_cast<double>(2 * i) * 6;
        EXPECT_GE(words[i].left, cell - 0.1) << family;
        EXPECT_LT(words[i].left, cell + 3) << family;
      }
    }
  }
}

TEST_F(Drawn, SizesOutOfRangeDrawNothing) {
  PrintDocument document;
  for (const double size : {std::nan(""), -3.0, 0.0}) {
    document.FontSize = size;
    document.Print("x"_w);
  }
  document.FontSize = 10;
  document.CurrentY = 0;
  document.Print("here"_w);
  const std::vector<Word> words = WordsOf(Draw(document, A4()));
  ASSERT_THAT(words, SizeIs(1));
  EXPECT_EQ(words[0].text, QStringLiteral("here"));
  document.FontSize = 1e30;
  document.Print("x"_w);
  EXPECT_TRUE(Draw(document, A4()).startsWith("%PDF"));
}

TEST_F(Drawn, ThePlacesOfLinesAreMadeSmallerWithThem) {
  PrintDocument document = Lines(3);
  const double scale = LayOut(document, Roll(58, 5)).scale;
  const std::vector<Word> words = WordsOf(Draw(document, Roll(58, 5)));
  ASSERT_THAT(words, SizeIs(3));
  EXPECT_NEAR(words[0].left, Millimetres(5), 0.1);
  EXPECT_NEAR(words[2].top - words[0].top, 2 * 10.5 * 2320 / 2048 * scale, 0.1);
}

// --- What becomes of them
// --------------------------------------------------------------------------------------

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
  }
  ~Handed() override {
    Change([this] { spooler_.hangs = spooler_.hangsFor = false; });
    printer_.reset();
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
  /// Ends the printer, and gives the lines on standard error.
  std::vector<std::string> End() {
    testing::internal::CaptureStderr();
    printer_.reset();
    std::istringstream errors(testing::internal::GetCapturedStderr());
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
  testing::internal::CaptureStderr();
  printer_->EndDoc(Slip(10));
  printer_.reset();
  EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("is lost: no answer"));
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
    testing::internal::CaptureStderr();
    EXPECT_LT(Milliseconds([&] { printer.reset(); }), 2000);
    const std::string errors = testing::internal::GetCapturedStderr();
    EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 2) << errors;
    Change([&] { spooler_.hangs = spooler_.hangsFor = false; });
  }
  // The thread that was left behind finds nobody, and tells nothing more.
  testing::internal::CaptureStderr();
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
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
  testing::internal::CaptureStderr();
  for (int i = 0; i < 102; ++i)
    printer_->EndDoc(Slip(10));
  const std::string errors = testing::internal::GetCapturedStderr();
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
