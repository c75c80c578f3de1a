// The curve of a category: its line, its axes, its values.
#include "window/controls/CurveView.h"

#include <gtest/gtest.h>

#include <QImage>

#include "window/controls/Theme.h"

namespace vintoral::test {
namespace {

std::vector<Money> Values(std::int64_t (*unitsAt)(int)) {
  std::vector<Money> values;
  for (int minute = 0; minute <= 1440; ++minute)
    values.push_back(Money::FromUnits(unitsAt(minute)));
  return values;
}

std::int64_t Flat(int) {
  return 100;
}

class Curve : public testing::Test {
 protected:
  Curve() { view_.resize(400, 320); }
  QImage Shown(const std::vector<Money>& values, const QString& category = QStringLiteral("AUTO")) {
    view_.ShowCurve(category, values);
    view_.ShowCurrency(QStringLiteral("$"));
    return view_.grab().toImage().convertToFormat(QImage::Format_RGB32);
  }
  /// The rows of this column of the widget that show the line, from above.
  static std::vector<int> LineAt(const QImage& image, int x) {
    std::vector<int> rows;
    const double ratio = image.devicePixelRatio();
    for (int y = 0; y < image.height(); ++y)
      if (image.pixel(static_cast<int>(x * ratio), y) == theme::kAccent)
        rows.push_back(static_cast<int>(y / ratio));
    return rows;
  }
  CurveView view_{nullptr};
};

TEST_F(Curve, AxisStepsAreRound) {
  EXPECT_EQ(CurveView::AxisStep(0), 1);
  EXPECT_EQ(CurveView::AxisStep(5), 1);
  EXPECT_EQ(CurveView::AxisStep(6), 2);
  EXPECT_EQ(CurveView::AxisStep(10), 2);
  EXPECT_EQ(CurveView::AxisStep(11), 5);
  EXPECT_EQ(CurveView::AxisStep(26), 10);
  EXPECT_EQ(CurveView::AxisStep(30000), 10000);
  EXPECT_EQ(CurveView::AxisStep(300000), 100000);
  EXPECT_EQ(CurveView::AxisStep(922'337'203'685'477), 200'000'000'000'000);
}

TEST_F(Curve, AFlatPriceIsALevelLineAtItsValue) {
  const QImage image = Shown(Values(Flat));
  // 100 is the top of its axis. The plot ends above the hours: 14 and 22 of 320.
  const std::vector<int> left = LineAt(image, 150);
  const std::vector<int> right = LineAt(image, 320);
  ASSERT_FALSE(left.empty());
  EXPECT_EQ(left, right);
  EXPECT_NEAR(left.front(), 102, 2);  // under padding, head, values and a gap: 14 + 28 + 40 + 20
}

TEST_F(Curve, AFreeDayLiesOnTheAxis) {
  const QImage image = Shown(Values([](int) { return std::int64_t{0}; }));
  ASSERT_FALSE(LineAt(image, 200).empty());
  EXPECT_NEAR(LineAt(image, 200).front(), 284, 2);  // 320 less padding and hours
}

TEST_F(Curve, RisesWithTheValue) {
  const QImage image = Shown(Values([](int minute) { return std::int64_t{minute / 60 * 10}; }));
  const std::vector<int> early = LineAt(image, 120);
  const std::vector<int> late = LineAt(image, 350);
  ASSERT_FALSE(early.empty());
  ASSERT_FALSE(late.empty());
  EXPECT_GT(early.front(), late.front() + 80);
}

TEST_F(Curve, TellsTheValuesOfAnHourTwoAndADay) {
  std::vector<Money> values = Values(Flat);
  const QImage before = Shown(values);
  const QRect row(14, 58, 372, 24);
  int part = 0;
  for (const std::size_t minute : {60U, 120U, 1440U}) {
    values = Values(Flat);
    values[minute] = Money::FromRaw(995'000);
    const QImage after = Shown(values);
    for (int i = 0; i < 3; ++i) {
      const double ratio = after.devicePixelRatio();
      const QRect place(QPoint(row.left() + i * 124, row.top()) * ratio, QSize(120, 24) * ratio);
      EXPECT_EQ(after.copy(place) != before.copy(place), i == part) << minute << " " << i;
    }
    ++part;
  }
}

TEST_F(Curve, AnotherCategoryOrCurrencyShows) {
  const QImage before = Shown(Values(Flat));
  EXPECT_NE(Shown(Values(Flat), QStringLiteral("MOTO")), before);
  Shown(Values(Flat));
  view_.ShowCurrency(QStringLiteral("US$"));
  EXPECT_NE(view_.grab().toImage().convertToFormat(QImage::Format_RGB32), before);
}

TEST_F(Curve, WithoutAPriceNoLine) {
  const QImage none = Shown({});
  for (int x = 0; x < 400; x += 5)
    EXPECT_TRUE(LineAt(none, x).empty()) << x;
  EXPECT_NE(Shown({}, QString()), none);
}

}  // namespace
}  // namespace vintoral::test
