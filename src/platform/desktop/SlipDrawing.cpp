#include "platform/desktop/SlipDrawing.h"

#include <QBuffer>
#include <QFile>
#include <QFont>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <memory>
#include <unordered_map>

namespace vintoral {
namespace {

constexpr int kTwipsInInch = 1440;

QString Utf16(std::string_view text) {
  return QString::fromStdString(String(text).ToUtf8());
}

/// A type that is there as long as this is.
class FontResource {
 public:
  explicit FontResource(const QByteArray& file) : id_(QFontDatabase::addApplicationFontFromData(file)) {}
  ~FontResource() {
    if (id_ >= 0) QFontDatabase::removeApplicationFont(id_);
  }
  FontResource(const FontResource&) = delete;
  FontResource& operator=(const FontResource&) = delete;

  /// Its name, which is the file's own; empty where there is none.
  QString Family() const { return QFontDatabase::applicationFontFamilies(id_).value(0); }

 private:
  int id_;
};

/// The picture's pixels as Qt has them.
QImage ToImage(const cImage& picture) {
  QImage image(picture.Width(), picture.Height(), QImage::Format_RGB888);
  const auto bytes = static_cast<std::size_t>(picture.Width()) * 3;
  std::vector<std::uint8_t> row(bytes);
  for (int y = 0; y < picture.Height(); ++y) {
    ReadColourRow(picture.hDC(), 0, y, picture.Width(), row.data());
    std::copy(row.begin(), row.end(), image.scanLine(y));
  }
  return std::move(image).rgbSwapped();
}

/// The picture's place at the resolution of a good print head.
PicturePlace PlaceOf(const PrintOperation& operation) {
  const auto pixels = [](Twips twips) {
    constexpr int kDotsInInch = 300;
    return std::max(1, static_cast<int>(std::int64_t{twips} * kDotsInInch / kTwipsInInch));
  };
  return {pixels(operation.width), pixels(operation.height), true};
}

std::shared_ptr<const cImage> PixelsOf(const PrintOperation& operation, const SlipFiles& files) {
  const Picture& picture = operation.picture;
  if (picture.Path().Empty()) return picture.Pixels();
  const DecodedPicture decoded = files.load(picture.Path(), PlaceOf(operation));
  if (decoded.fault != PictureFault::kNone)
    std::fprintf(stderr, "print: no picture in %s\n", picture.Path().ToUtf8().c_str());
  return decoded.pixels;
}

QByteArray ReadType(const std::string& path) {
  QFile file(QString::fromStdString(path));
  const bool open = file.open(QIODevice::ReadOnly);
  if (!open) std::fprintf(stderr, "print: no type in %s\n", path.c_str());
  return open ? file.readAll() : QByteArray();
}

/// Draws in twips, from the page's upper left corner on.
class SlipPainter {
 public:
  SlipPainter(QPdfWriter& paper, const SlipLayout& layout, const SlipMaterial& material)
      : paper_(paper), layout_(layout), material_(material), painter_(&paper) {}

  void Draw(const SlipPage& page) {
    painter_.resetTransform();
    painter_.translate(layout_.left * kTwipsInPoint, layout_.top * kTwipsInPoint);
    painter_.scale(layout_.scale, layout_.scale);
    painter_.translate(0, -page.top);
    for (const SlipItem& item : page.items)
      item.operation->kind == PrintOperation::Kind::kPicture ? DrawPicture(*item.operation) : DrawLine(item);
  }

 private:
  void DrawPicture(const PrintOperation& operation) {
    const auto found = material_.pictures.find(&operation);
    if (found == material_.pictures.end()) return;
    painter_.drawImage(QRectF(operation.x, operation.y, operation.width, operation.height),
                       ToImage(*found->second));
  }

  void DrawLine(const SlipItem& item) {
    const PrintOperation& text = *item.operation;
    const bool bars = std::string_view(text.fontName) == fuente::kBarras;
    const QFont font = bars ? BarsFont(item.barsFile) : TextFont(text);
    if (font.families().value(0).isEmpty() || !(text.fontSize > 0)) return;
    Draw(item, Sized(font, text.fontSize), bars);
  }

  QFont TextFont(const PrintOperation& text) const {
    QFont font({Utf16(text.fontName), QStringLiteral("Liberation Mono")});
    font.setStyleHint(QFont::Monospace);
    font.setBold(text.fontBold);
    return font;
  }

  /// Without a family where the file is not there.
  QFont BarsFont(std::string_view file) {
    QFont font;
    font.setFamilies({file.empty() ? QString() : ResourceOf(file).Family()});
    return font;
  }

  const FontResource& ResourceOf(std::string_view file) {
    std::unique_ptr<FontResource>& resource = resources_[std::string(file)];
    if (resource == nullptr) resource = std::make_unique<FontResource>(TypeIn(file));
    return *resource;
  }

  QByteArray TypeIn(std::string_view file) const {
    const auto found = material_.types.find(file);
    return found == material_.types.end() ? QByteArray() : found->second;
  }

  static QFont Sized(QFont font, double size) {
    constexpr double kLargest = 2000;  // of a damaged format: no paper takes it, and the toolkit fails beyond
    font.setPointSizeF(std::min(size, kLargest));
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setKerning(false);
    return font;
  }

  /// Character by character: each stands in its column, whatever type stands in for the one that was meant.
  void Draw(const SlipItem& item, const QFont& font, bool fills) {
    const TypeMeasures& measures = MeasuresOf(item.operation->fontName);
    const double size = item.operation->fontSize * kTwipsInPoint;
    const double cell = measures.advance * size;
    const QFontMetricsF metrics(font, &paper_);
    painter_.setFont(font);
    QPointF foot(item.x, item.y + measures.ascent * size);
    for (const QChar character : Utf16(item.line)) {
      if (character > u' ' || fills)
        DrawIn(cell, foot, character, metrics.horizontalAdvance(character), fills);
      foot.rx() += cell;
    }
  }

  /// A letter that is wider than its cell is made narrower, any other stands in the middle; bars fill it, for
  /// the next ones follow at once.
  void DrawIn(double cell, const QPointF& foot, QChar character, double width, bool fills) {
    constexpr double kNothing = 0.001;  // the type's own rounding
    const double squeeze = fills || width > cell ? cell / width : 1;
    if (width <= 0) return;
    painter_.save();
    painter_.translate(foot.x() + std::max(0.0, fills ? 0 : (cell - width) / 2), foot.y());
    if (std::abs(squeeze - 1) > kNothing) painter_.scale(squeeze, 1);
    painter_.drawText(QPointF(0, 0), QString(character));
    painter_.restore();
  }

  QPdfWriter& paper_;
  const SlipLayout& layout_;
  const SlipMaterial& material_;
  std::unordered_map<std::string, std::unique_ptr<FontResource>> resources_;
  QPainter painter_;  // ends before the types that it has used go
};

}  // namespace

SlipMaterial Gather(const PrintDocument& document, const SlipFiles& files) {
  using Kind = PrintOperation::Kind;
  SlipMaterial material;
  for (const PrintOperation& operation : document.Operations()) {
    if (operation.kind == Kind::kAddFont && !material.types.contains(operation.text.Bytes()))
      material.types[operation.text.Bytes()] = ReadType(files.fileOf(operation.text));
    if (operation.kind != Kind::kPicture) continue;
    const std::shared_ptr<const cImage> pixels = PixelsOf(operation, files);
    if (pixels != nullptr && pixels->Width() > 0) material.pictures[&operation] = pixels;
  }
  return material;
}

QByteArray DrawSlip(const SlipLayout& layout, const SlipMaterial& material) {
  QBuffer pdf;
  pdf.open(QIODevice::WriteOnly);
  QPdfWriter paper(&pdf);
  paper.setTitle(QStringLiteral("Vintoral"));
  paper.setResolution(kTwipsInInch);
  const QSizeF size(layout.paper.width, layout.paper.length);
  paper.setPageLayout(QPageLayout(QPageSize(size, QPageSize::Point, QString(), QPageSize::ExactMatch),
                                  QPageLayout::Portrait, QMarginsF()));
  {
    SlipPainter painter(paper, layout, material);
    for (const SlipPage& page : layout.pages) {
      if (&page != &layout.pages.front()) paper.newPage();
      painter.Draw(page);
    }
  }
  return pdf.data();
}

}  // namespace vintoral
