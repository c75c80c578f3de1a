#include <unistd.h>

#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QProcess>
#include <QTest>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <memory>
#include <random>
#include <thread>
#include <vector>

// After <cstdio>, whose types it needs.
#include <jpeglib.h>

#include "Benches.h"
#include "app/Station.h"
#include "app/Toolkit.h"
#include "common/Numbers.h"
#include "unit/camera/LibJpeg.h"
#include "window/controls/PhotoCell.h"
#include "window/controls/Views.h"
#include "window/form1/CellGrid.h"

namespace vintoral::bench {

namespace {

constexpr int kPages = 2, kFichas = kPages * kCells;
constexpr int kPhotoWidth = 320, kPhotoHeight = 240;

QString PhotoFile(const std::string& folder, int number) {
  const std::string name = "/Multimedia/Imágenes ACT/" + Digits(number, 6).Bytes() + ".jpg";
  return QString::fromStdString(folder + name);
}

/// As a gate's camera has taken them, stored as photos usually are.
void PutPhotos(const std::string& folder) {
  for (int number = 1; number <= kFichas; ++number) {
    const auto photo = made::Photograph(kPhotoWidth, kPhotoHeight, static_cast<unsigned>(number));
    const auto bytes = made::EncodeWithLibJpeg(photo, {.quality = 85, .h1 = 2, .v1 = 2});
    QFile file(PhotoFile(folder, number));
    if (!file.open(QIODevice::WriteOnly)) std::exit(1);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<qint64>(bytes.size()));
  }
}

std::vector<RegistroFicha> FullPages(const Station& station) {
  std::vector<RegistroFicha> fichas(kFichas);
  for (int i = 0; i < kFichas; ++i) {
    RegistroFicha& ficha = fichas[static_cast<std::size_t>(i)];
    ficha.EnUso = true;
    ficha.MarcaEntrada = StampOf(station.Devices.Clock.Now());
    ficha.MarcaSalida = "??";
    ficha.PorteriaSalida = "??";
    ficha.PorteriaEntrada = "01";
    ficha.Posicion = i + 1;
    ficha.NumeroFicha = Digits(i + 1, 4);
    ficha.Placa = "AAA"_w + Digits(i + 1, 3);
  }
  return fichas;
}

/// A station in its window with an empty grid.
class GridStation {
 public:
  GridStation(int& argc, char** argv, const std::string& folder, const QSize& size)
      : application_(argc, argv), Running(folder) {
    if (!Running.WaitUntilStarted()) std::exit(1);
    Running.Window.showNormal();  // no screen is as large here
    Running.Window.resize(size);
    QTest::qWait(kUntilCalm);
    for (int cell = 0; cell < kCells; ++cell)
      cells_.push_back(static_cast<PhotoCell*>(
          Running.Window.Shown().WidgetOf(ControlName("ImgFicha", static_cast<std::size_t>(cell)).text)));
    big_ = static_cast<PictureView*>(Running.Window.Shown().WidgetOf("Picture2"));
  }

  /// Until all that is shown has been read and painted.
  void Settle() {
    Running.Settle();
    while (Reading())
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QCoreApplication::processEvents();
  }
  void ShowPage(int page) {
    Running.Do([&] {
      Running.Form.InicioPagina = 1 + page * kCells;
      Running.Form.ImprimirIndice();
    });
    Settle();
  }
  bool Reading() const {
    const auto reads = [](const PictureView* view) { return view->isVisible() && view->Loading(); };
    return reads(big_) || std::any_of(cells_.begin(), cells_.end(), reads);
  }
  /// How many cells have their photo.
  std::ptrdiff_t Filled() const {
    return std::count_if(cells_.begin(), cells_.end(),
                         [](const PhotoCell* cell) { return cell->isVisible() && cell->HasPicture(); });
  }
  PhotoCell& Cell(int cell) { return *cells_[static_cast<std::size_t>(cell)]; }

 private:
  static constexpr int kUntilCalm = 4500;  // the link is up, the sounds are loaded
  Toolkit application_;
  std::vector<PhotoCell*> cells_;
  PictureView* big_ = nullptr;

 public:
  Station Running;
};

double Milliseconds(long long begun) {
  return static_cast<double>(Nanoseconds() - begun) / 1e6;
}

double Percentile(std::vector<double> values, int percent) {
  std::sort(values.begin(), values.end());
  return values[(values.size() - 1) * static_cast<std::size_t>(percent) / 100];
}

/// The fewest eighths at which a photo is as large as its cell.
unsigned EighthsFor(const PhotoCell& cell) {
  unsigned eighths = 1;
  const auto tooSmall = [&] {
    return kPhotoWidth * static_cast<int>(eighths) / 8 < cell.width() - 2 &&
           kPhotoHeight * static_cast<int>(eighths) / 8 < cell.height() - 2;
  };
  while (eighths < 8 && tooSmall())
    ++eighths;
  return eighths;
}

/// The same files to the same scale, by libjpeg-turbo alone; the number of rows.
unsigned DecodePage(const std::string& folder, int page, unsigned eighths) {
  unsigned rows = 0;
  for (int i = 0; i < kCells; ++i) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(
        std::fopen(PhotoFile(folder, page * kCells + i + 1).toUtf8().constData(), "rb"), std::fclose);
    jpeg_decompress_struct info{};
    jpeg_error_mgr errors{};
    info.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&info);
    jpeg_stdio_src(&info, file.get());
    jpeg_read_header(&info, TRUE);
    info.scale_num = eighths;
    info.scale_denom = 8;
    info.out_color_space = JCS_EXT_BGRX;
    jpeg_start_decompress(&info);
    std::vector<JSAMPLE> pixels(std::size_t{info.output_width} * info.output_height * 4);
    for (; info.output_scanline < info.output_height; ++rows) {
      JSAMPROW row = pixels.data() + std::size_t{info.output_scanline} * info.output_width * 4;
      jpeg_read_scanlines(&info, &row, 1);
    }
    jpeg_finish_decompress(&info);
    jpeg_destroy_decompress(&info);
  }
  return rows;
}

void MeasurePages(GridStation& grid, const std::string& folder) {
  constexpr int kRounds = 61;
  const unsigned eighths = EighthsFor(grid.Cell(0));
  std::vector<double> drawn, decoded;
  for (int round = 0; round < kRounds; ++round) {
    const int page = round % kPages;
    long long begun = Nanoseconds();
    grid.ShowPage(page);
    drawn.push_back(Milliseconds(begun));
    begun = Nanoseconds();
    if (DecodePage(folder, page, eighths) == 0) std::exit(1);
    decoded.push_back(Milliseconds(begun));
  }
  const double page = Percentile(drawn, 50), turbo = Percentile(decoded, 50);
  std::printf(
      "page of %d photos %dx%d to cells of %dx%d: %.1f ms, libjpeg-turbo at %u/8 %.1f ms, ratio %.2f (at "
      "most "
      "1.5)\n",
      kCells, kPhotoWidth, kPhotoHeight, grid.Cell(0).width(), grid.Cell(0).height(), page, eighths, turbo,
      page / turbo);
}

void MeasurePointer(GridStation& grid) {
  constexpr int kMoves = 1000;
  std::vector<double> times;
  int missed = 0;
  MainWindow& window = grid.Running.Window;
  for (int move = 0; move < kMoves; ++move) {
    PhotoCell& cell = grid.Cell(move % kCells);
    const QPoint at = cell.mapTo(&window, cell.rect().center());
    const long long begun = Nanoseconds();
    QTest::mouseMove(window.windowHandle(), at);
    grid.Settle();
    times.push_back(Milliseconds(begun));
    int pointed = -1;
    grid.Running.Do([&] { pointed = grid.Running.Form.ShpCelda.Cell; });
    if (pointed != move % kCells) ++missed;
  }
  std::printf(
      "pointer to the next cell, its fields and its large photo: median %.2f ms, 99th percentile %.2f ms (at "
      "most 16), %d of %d missed\n",
      Percentile(times, 50), Percentile(times, 99), missed, kMoves);
}

/// Tells when a widget is painted.
class PaintWatch : public QObject {
 public:
  explicit PaintWatch(QWidget& widget) : QObject(&widget) { widget.installEventFilter(this); }
  long long At = 0;

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) At = Nanoseconds();
    return false;
  }
};

/// What a page that fills from a slow share lets the operator wait for, in milliseconds.
struct SlowPage {
  double key = 0;    ///< a key pressed meanwhile, to its repaint
  double first = 0;  ///< the first photo
  double all = 0;    ///< all of them
};

SlowPage FillSlowly(GridStation& grid, int page, std::chrono::microseconds until) {
  Form1& form = grid.Running.Form;
  auto* const field = static_cast<QLineEdit*>(grid.Running.Window.Shown().WidgetOf("TxtCampo(0)"));
  const std::unique_ptr<PaintWatch> painted = std::make_unique<PaintWatch>(*field);
  std::atomic<long long> pressed = 0;
  auto* const key = new QKeyEvent(QEvent::KeyPress, Qt::Key_7, {}, QStringLiteral("7"));
  std::thread hand([&] {
    std::this_thread::sleep_for(until);
    pressed = Nanoseconds();
    QCoreApplication::postEvent(field, key);  // which takes the event over
  });
  SlowPage waited;
  const long long begun = Nanoseconds();
  grid.Running.Devices.Thread.Tell([&] {
    form.InicioPagina = 1 + page * kCells;
    form.RefrescarVista();
  });
  const auto typed = [&] { return !field->text().isEmpty(); };
  while (!typed() || painted->At < pressed || grid.Reading()) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    if (waited.first == 0 && grid.Filled() > 0) waited.first = Milliseconds(begun);
    if (waited.key == 0 && typed() && painted->At > pressed)
      waited.key = static_cast<double>(painted->At - pressed) / 1e6;
  }
  waited.all = Milliseconds(begun);
  hand.join();
  grid.Running.Do([&] { form.TxtCampo[0].SetText({}); });
  grid.Settle();
  return waited;
}

long long ResidentBytes() {
  long long all = 0, resident = 0;
  std::ifstream("/proc/self/statm") >> all >> resident;
  return resident * sysconf(_SC_PAGESIZE);
}

QSize SizeOf(char** argv) {
  return {std::atoi(argv[0]), std::atoi(argv[1])};
}

}  // namespace

int GridTimes(int argc, char** argv, const std::string& folder) {
  GridStation grid(argc, argv, folder, SizeOf(argv + 3));
  grid.Running.Do([&] { grid.Running.Form.VistaFichas = FullPages(grid.Running); });
  MeasurePages(grid, folder);
  MeasurePointer(grid);
  return 0;
}

int GridMemory(int argc, char** argv, const std::string& folder) {
  GridStation grid(argc, argv, folder, SizeOf(argv + 3));
  grid.Settle();
  if (grid.Filled() != 0) {
    std::puts("memory of photos: the grid was not empty before");
    return 1;
  }
  const long long empty = ResidentBytes();
  grid.Running.Do([&] { grid.Running.Form.VistaFichas = FullPages(grid.Running); });
  grid.ShowPage(0);
  const double taken = static_cast<double>(ResidentBytes() - empty);
  const QSize cell = grid.Cell(0).size() - QSize(2, 2);
  const double pixels = 4.0 * kCells * cell.width() * cell.height();
  std::printf("memory of %d photos of %dx%d: %.2f MB, their pixels %.2f MB, ratio %.2f (at most 2)\n", kCells,
              cell.width(), cell.height(), taken / 1e6, pixels / 1e6, taken / pixels);
  return 0;
}

int SlowPages(int argc, char** argv, const std::string& folder) {
  constexpr int kRounds = 200;
  GridStation grid(argc, argv, folder, {1366, 728});
  int shown = 0;
  grid.Running.Do([&] { shown = grid.Running.Form.TotalVista(); });
  if (shown != kFichas) return 1;
  std::mt19937 random(7);
  std::uniform_int_distribution<int> moment(0, 300'000);
  std::vector<double> keys, firsts, all;
  for (int round = 0; round < kRounds; ++round) {
    const SlowPage waited = FillSlowly(grid, round % kPages, std::chrono::microseconds(moment(random)));
    keys.push_back(waited.key);
    firsts.push_back(waited.first);
    all.push_back(waited.all);
  }
  const double worst = Percentile(keys, 99);
  std::printf(
      "slow share, a page of %d photos: the first after %.0f ms, all after %.0f ms; a key meanwhile: median "
      "%.1f ms, 99th percentile %.1f ms (at most 150)\n",
      kCells, Percentile(firsts, 50), Percentile(all, 50), Percentile(keys, 50), worst);
  return worst <= 150 ? 0 : 1;
}

void MeasureGrid(const std::string& self, const std::string& folder) {
  PutPhotos(folder);
  const QString program = QString::fromStdString(self), station = QString::fromStdString(folder);
  const QStringList small{QStringLiteral("1366"), QStringLiteral("728")};
  const QStringList large{QStringLiteral("3840"), QStringLiteral("2160")};
  for (const QStringList& size : {small, large}) {
    for (const char* const mode : {"--grid-times", "--grid-memory"})
      QProcess::execute(program, QStringList{QString::fromLatin1(mode), station} + size);
  }
}

}  // namespace vintoral::bench
