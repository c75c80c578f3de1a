#include <QApplication>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "Benches.h"
#include "app/Station.h"
#include "app/Toolkit.h"
#include "common/Numbers.h"

namespace vintoral::bench {

namespace {

constexpr int kArticles = 200;
constexpr int kOpenings = 300;

/// Leaves the dialog by Esc as soon as its list has been painted and the painting is through.
class DialogWatch : public QObject {
 public:
  explicit DialogWatch(QApplication& application) { application.installEventFilter(this); }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Paint || watched->objectName() != QLatin1String("LstArticulo")) return false;
    if (painted_ == 0)
      QTimer::singleShot(0, this, [this, watched] { Leave(*static_cast<QWidget*>(watched)); });
    painted_ = -1;
    return false;
  }
  /// When the dialog stood there; 0 where nothing was painted for long.
  long long Await() {
    constexpr int kLong = 1000;
    if (!QTest::qWaitFor([this] { return painted_ > 0; }, kLong)) return 0;
    return std::exchange(painted_, 0);
  }

 private:
  void Leave(QWidget& list) {
    painted_ = Nanoseconds();
    QTest::simulateEvent(list.window()->windowHandle(), true, Qt::Key_Escape, Qt::NoModifier, {}, false);
  }
  long long painted_ = 0;
};

}  // namespace

int ArticleTimes(int argc, char** argv, const std::string& folder) {
  Toolkit application(argc, argv);
  Station station(folder);
  if (!station.WaitUntilStarted()) return 1;
  station.Do([&] {
    station.Form.TablaExtras.clear();
    for (int i = 1; i <= kArticles; ++i)
      station.Form.TablaExtras.push_back("ARTICULO "_w + Digits(i) + " = "_w + Digits(i * 100));
  });
  DialogWatch watch(application);
  std::vector<double> times;
  int missed = 0;
  for (int i = 0; i < kOpenings; ++i) {
    const long long begun = Nanoseconds();
    QTest::simulateEvent(station.Window.windowHandle(), true, Qt::Key_F7, Qt::NoModifier, {}, false);
    const long long painted = watch.Await();
    station.Settle();
    times.push_back(static_cast<double>(painted - begun) / 1e6);
    if (painted <= 0) ++missed;
    QTest::qWait(1);
  }
  std::sort(times.begin(), times.end());
  std::printf(
      "F7 with %d articles to painted pixels: median %.2f ms, 99th percentile %.2f ms (at most 50), longest "
      "%.2f ms, %d of %d missed\n",
      kArticles, times[kOpenings / 2], times[kOpenings * 99 / 100], times.back(), missed, kOpenings);
  return missed == 0 ? 0 : 1;
}

}  // namespace vintoral::bench
