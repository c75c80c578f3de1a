#include <gst/gst.h>
#include <sys/resource.h>

#include <QApplication>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QTcpServer>
#include <QTest>
#include <QWidget>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "Benches.h"
#include "Median.h"
#include "platform/desktop/DesktopCamera.h"

namespace vintoral::bench {

namespace {

constexpr int kViewWidth = 320, kViewHeight = 240;
constexpr const char* kSmall =
    "videotestsrc is-live=true ! capsfilter caps=video/x-raw,format=I420,width=640,height=480,framerate=15/1";
constexpr const char* kLarge =
    "videotestsrc is-live=true ! capsfilter "
    "caps=video/x-raw,format=I420,width=1920,height=1080,framerate=15/1";
constexpr double kLargeFrame = 1920 * 1080 * 1.5;  // bytes
const String kName = String::FromUtf8("x");

/// As the station's side column paints it.
class View : public QWidget {
 public:
  explicit View(DesktopCamera& camera) : camera_(camera) {
    resize(kViewWidth, kViewHeight);
    show();
    camera_.Show(kViewWidth, kViewHeight, [this] {
      QMetaObject::invokeMethod(
          this, [this] { update(); }, Qt::QueuedConnection);
    });
  }
  ~View() override { camera_.Show(0, 0, {}); }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    const auto live = camera_.Live();
    if (!live) return;
    QPainter(this).drawImage(0, 0,
                             QImage(live->pixels.data(), live->width, live->height, QImage::Format_RGB32));
  }

 private:
  DesktopCamera& camera_;
};

double ProcessorSeconds() {
  rusage used{};
  getrusage(RUSAGE_SELF, &used);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(used.ru_utime) + seconds(used.ru_stime);
}

/// Processor time of four seconds, once all runs; in milliseconds.
double Running() {
  constexpr int kUntilItRuns = 1500, kMeasured = 4000;
  QTest::qWait(kUntilItRuns);
  const double before = ProcessorSeconds();
  QTest::qWait(kMeasured);
  return (ProcessorSeconds() - before) * 1000;
}

double OfPipeline(const std::string& description) {
  gst_init(nullptr, nullptr);
  GstElement* const pipeline = gst_parse_launch((description + " ! fakesink sync=false").c_str(), nullptr);
  gst_element_set_state(pipeline, GST_STATE_PLAYING);
  const double taken = Running();
  gst_element_set_state(pipeline, GST_STATE_NULL);
  gst_object_unref(pipeline);
  return taken;
}

double OfView() {
  DesktopCamera camera;
  camera.AddDevice(kName, kSmall);
  camera.Start({kName, {}, {}});
  camera.Begin();
  const View view(camera);
  return Running();
}

double Memory() {
  QFile rollup(QStringLiteral("/proc/self/smaps_rollup"));
  if (!rollup.open(QIODevice::ReadOnly)) return 0;
  const QByteArray text = rollup.readAll();
  return text.mid(text.indexOf("Pss:") + 4).trimmed().split(' ').first().toDouble() * 1024;
}

/// What the process takes when a camera runs, with a view and after photos, or when none does.
double OfMemory(bool runs) {
  DesktopCamera camera;
  camera.AddDevice(kName, kLarge);
  if (runs) camera.Start({kName, {}, {}});
  camera.Begin();
  const View view(camera);
  constexpr int kSettled = 3000, kPhotos = 20;
  QTest::qWait(kSettled);
  for (int i = 0; i < kPhotos; ++i)
    camera.Snap();
  QTest::qWait(kSettled);
  return Memory();
}

double OfSnaps(const char* description) {
  DesktopCamera camera;
  camera.AddDevice(kName, description);
  camera.Start({kName, {}, {}});
  camera.Begin();
  while (camera.Snap() == nullptr)
    QTest::qWait(1);
  constexpr int kPhotos = 400, kApart = 7;
  std::vector<double> times;
  for (int i = 0; i < kPhotos; ++i) {
    const long long begun = Nanoseconds();
    if (camera.Snap() == nullptr) return -1;
    times.push_back(static_cast<double>(Nanoseconds() - begun) / 1e6);
    QTest::qWait(kApart);
  }
  std::sort(times.begin(), times.end());
  return times[times.size() * 99 / 100];
}

double Child(const std::string& self, const char* what) {
  QProcess child;
  child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  child.start(QString::fromStdString(self), {QStringLiteral("--camera"), QString::fromUtf8(what)});
  child.waitForFinished(-1);
  return child.readAllStandardOutput().trimmed().toDouble();
}

double MedianOf(const std::string& self, const char* what) {
  std::vector<double> values;
  for (int i = 0; i < 3; ++i)
    values.push_back(Child(self, what));
  return Median(values);
}

}  // namespace

int CameraFigure(int argc, char** argv, const std::string& what) {
  QApplication application(argc, argv);
  double figure = 0;
  if (what == "view") figure = OfView();
  if (what == "source") figure = OfPipeline(kSmall);
  if (what == "reference")
    figure = OfPipeline(std::string(kSmall) +
                        " ! videoconvertscale ! video/x-raw,format=BGRx,width=320,height=240");
  if (what == "memory") figure = OfMemory(true);
  if (what == "memory-without") figure = OfMemory(false);
  if (what == "snaps") figure = OfSnaps(kLarge);
  if (what == "snaps-small") figure = OfSnaps(kSmall);
  std::printf("%.3f\n", figure);
  return 0;
}

void MeasureCameras(const std::string& self, const std::string& folder) {
  const double source = MedianOf(self, "source"), reference = MedianOf(self, "reference"),
               view = MedianOf(self, "view");
  std::printf(
      "live picture, 4 s of 640 x 480 at 15 a second: %.0f ms, GStreamer to the painted size %.0f ms, ratio "
      "%.2f "
      "(at most 1.5); without the source's own %.0f ms: %.2f\n",
      view, reference, view / reference, source, (view - source) / (reference - source));
  const double more = (MedianOf(self, "memory") - MedianOf(self, "memory-without")) / kLargeFrame;
  std::printf("memory with a camera of 1920 x 1080, beyond without: %.1f frames (at most 12)\n", more);
  std::printf("a still, 99th percentile: 1920 x 1080 %.2f ms, 640 x 480 %.2f ms (at most 5)\n",
              MedianOf(self, "snaps"), MedianOf(self, "snaps-small"));
  CompareStartsWithCamera(self, folder);
}

}  // namespace vintoral::bench
