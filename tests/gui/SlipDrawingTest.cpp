// What is drawn of a slip, read back from the page.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QProcess>
#include <QRegularExpression>

#include "Papers.h"
#include "platform/desktop/SlipDrawing.h"
#include "support/TempFolder.h"

namespace vintoral::test {
namespace {

using testing::SizeIs;

struct Word {
  double left, top;
  QString text;
};

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

}  // namespace
}  // namespace vintoral::test
