// Measures the window on the offscreen platform; no arguments needed. With --cameras the start and the
// cameras alone, with --alerts the alerts alone, with --articles the dialog of the articles, with --hang the
// window while the folder hangs, with --idle a minute in which nothing happens, which no other run measures.
#include <QFile>
#include <QProcess>
#include <QString>
#include <cstdlib>
#include <string_view>

#include "Benches.h"
#include "support/TempFolder.h"

namespace {

/// A station that is installed and has been started before, with a home and a desktop of its own.
void Install(const vintoral::test::TempFolder& folder) {
  folder.Put("home/Desktop/Vintoral.desktop", "[Desktop Entry]\n");
  folder.Put("run/.keep", "");
  folder.Put("station/Recursos/Vintoral.RLD", "");  // starts beside a station that runs on this machine
  qputenv("HOME", folder.Path("home").c_str());
  qputenv("XDG_RUNTIME_DIR", folder.Path("run").c_str());
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_LOGGING_RULES", "*.warning=false");  // of the offscreen platform about what it can't do
  std::filesystem::permissions(folder.Path("run"), std::filesystem::perms::owner_all);
  const std::string install = VINTORAL_SOURCE "/scripts/install-data '" + folder.Path("station") + "'";
  if (std::system(install.c_str()) != 0) std::exit(1);
}

}  // namespace

int main(int argc, char** argv) {
  using namespace vintoral::bench;
  const std::string_view mode = argc > 1 ? argv[1] : "";
  if (mode == "--empty") return ShowEmpty(argc, argv);
  const bool first = mode == "--first";
  if ((first || mode == "--station") && argc > 2) return ShowStation(argc, argv, argv[2], first);
  if (mode == "--scan-times" && argc > 2) return ScanTimes(argc, argv, argv[2]);
  if (mode == "--article-times" && argc > 2) return ArticleTimes(argc, argv, argv[2]);
  if (mode == "--hang-times" && argc > 2) return HangTimes(argc, argv, argv[2]);
  if (mode == "--grid-times" && argc > 4) return GridTimes(argc, argv, argv[2]);
  if (mode == "--grid-memory" && argc > 4) return GridMemory(argc, argv, argv[2]);
  if (mode == "--slow-pages" && argc > 2) return SlowPages(argc, argv, argv[2]);
  if (mode == "--print-times" && argc > 2) return PrintTimes(argc, argv, argv[2]);
  if (mode == "--alert-time" && argc > 2) return AlertTime(argc, argv, argv[2]);
  if (mode == "--alert-key" && argc > 2) return KeyDuringAlert(argc, argv, argv[2]);
  if (mode == "--camera" && argc > 2) return CameraFigure(argc, argv, argv[2]);
  const vintoral::test::TempFolder folder;
  Install(folder);
  const std::string self = QFile::symLinkTarget(QStringLiteral("/proc/self/exe")).toStdString();
  if (mode == "--alerts") {
    MeasureAlerts(self, folder.Path("station"));
    return 0;
  }
  if (mode == "--hang") return HangTimes(argc, argv, folder.Path("station"));
  if (mode == "--idle") return IdleMinute(argc, argv, folder.Path("station"));
  if (mode == "--articles") return ArticleTimes(argc, argv, folder.Path("station"));
  if (mode == "--cameras") {
    CompareStarts(self, folder.Path("station"));
    MeasureCameras(self, folder.Path("station"));
    return 0;
  }
  CompareStarts(self, folder.Path("station"));
  MeasureKeys(argc, argv, folder.Path("station"));
  // With the house that the keys have filled.
  QProcess::execute(QString::fromStdString(self),
                    {QStringLiteral("--scan-times"), QString::fromStdString(folder.Path("station"))});
  QProcess::execute(QString::fromStdString(self),
                    {QStringLiteral("--hang-times"), QString::fromStdString(folder.Path("station"))});
  MeasureAlerts(self, folder.Path("station"));
  QProcess::execute(QString::fromStdString(self),
                    {QStringLiteral("--article-times"), QString::fromStdString(folder.Path("station"))});
  // What the memory of a page is compared with is an empty grid, which the house that the keys have filled is
  // not.
  const vintoral::test::TempFolder empty;
  Install(empty);
  QProcess start;
  start.setStandardOutputFile(QProcess::nullDevice());
  start.start(QString::fromStdString(self),
              {QStringLiteral("--first"), QString::fromStdString(empty.Path("station"))});
  start.waitForFinished();
  MeasureGrid(self, empty.Path("station"));
  MeasureCameras(self, folder.Path("station"));
  return 0;
}
