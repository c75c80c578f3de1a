#include "platform/desktop/SlipLayout.h"

#include <algorithm>
#include <cmath>

namespace vintoral {
namespace {

double Points(Twips twips) {
  return static_cast<double>(twips) / kTwipsInPoint;
}

/// Up to its lower edge.
Twips FootOf(const SlipItem& item) {
  const PrintOperation& operation = *item.operation;
  return item.y + (operation.kind == PrintOperation::Kind::kPicture
                       ? operation.height
                       : LinePitch(operation.fontName, operation.fontSize));
}

void AddLines(const PrintOperation& text, std::string_view barsFile, std::vector<SlipItem>& items) {
  const Twips pitch = LinePitch(text.fontName, text.fontSize);
  SlipItem item{
      &text, {}, text.x, text.y, std::string_view(text.fontName) == fuente::kBarras ? barsFile : ""};
  for (const std::string_view line : LinesOf(text.text)) {
    item.line = line;
    items.push_back(item);
    item.x = 0;
    item.y += pitch;
  }
}

/// All lines and pictures, from the top down.
std::vector<SlipItem> ItemsOf(const PrintDocument& document) {
  using Kind = PrintOperation::Kind;
  std::vector<SlipItem> items;
  std::string_view barsFile;
  for (const PrintOperation& operation : document.Operations()) {
    if (operation.kind == Kind::kText) AddLines(operation, barsFile, items);
    if (operation.kind == Kind::kPicture) items.push_back({&operation, {}, operation.x, operation.y, {}});
    if (operation.kind == Kind::kAddFont) barsFile = operation.text;
    if (operation.kind == Kind::kRemoveFont) barsFile = {};
  }
  std::stable_sort(items.begin(), items.end(),
                   [](const SlipItem& one, const SlipItem& other) { return one.y < other.y; });
  return items;
}

/// `room`: how much of the document a page takes. What doesn't fit on a page whole begins the next one.
std::vector<SlipPage> PagesOf(const std::vector<SlipItem>& items, double room) {
  std::vector<SlipPage> pages;
  for (const SlipItem& item : items) {
    const bool full = !pages.empty() && Points(FootOf(item) - pages.back().top) > room;
    if (pages.empty())
      pages.push_back({0, {}});
    else if (full && item.y > pages.back().top)
      pages.push_back({item.y, {}});
    pages.back().items.push_back(item);
  }
  return pages;
}

/// In whole points: neither the PDF nor the queue's driver has finer ones, and each rounds its own way.
PaperSize CutTo(double length, const QueuePaper& paper) {
  const double most = std::floor(paper.longest);
  return {std::floor(paper.standard.width), std::min(std::ceil(std::max(length, paper.shortest)), most)};
}

/// A roll is cut where the slip ends: the shortest paper that takes `length`, or the longest there is.
PaperSize RollFor(const QueuePaper& paper, double length) {
  if (paper.longest > 0) return CutTo(length, paper);
  constexpr double kSameWidth = 3;  // drivers round
  PaperSize best = paper.standard;
  for (const PaperSize& size : paper.sizes) {
    if (std::abs(size.width - paper.standard.width) > kSameWidth) continue;
    const bool takes = size.length >= length;
    const bool bestTakes = best.length >= length;
    if (takes && bestTakes ? size.length < best.length : size.length > best.length) best = size;
  }
  return best;
}

double ScaleFor(const PrintDocument& document, double room) {
  const double width = Points(document.Width());
  return width > room && room > 0 ? room / width : 1;
}

}  // namespace

bool IsRoll(const QueuePaper& paper) {
  constexpr double kWidest = 100 / 25.4 * 72;
  return paper.standard.width < kWidest;
}

SlipLayout LayOut(const PrintDocument& document, const QueuePaper& paper) {
  const PaperMargins& margins = paper.margins;
  SlipLayout layout{.paper = paper.standard, .left = margins.left, .top = margins.top, .pages = {}};
  layout.scale = ScaleFor(document, paper.standard.width - margins.left - margins.right);
  const double blank = margins.top + margins.bottom;
  if (IsRoll(paper)) layout.paper = RollFor(paper, Points(document.Height()) * layout.scale + blank);
  layout.own = layout.paper != paper.standard;
  layout.pages = PagesOf(ItemsOf(document), (layout.paper.length - blank) / layout.scale);
  return layout;
}

}  // namespace vintoral
