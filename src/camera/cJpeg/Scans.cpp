#include "camera/cJpeg/Scans.h"

#include <algorithm>

#include "camera/cJpeg/UnitGroup.h"

namespace vintoral {

namespace {

// Works through the picture, a group of units at a time, and hands each group on with its first unit.
template <class Taker>
void ForEachGroup(const ColourPlanes& planes, const Layout& layout, UnitGroup& group, int unitY, Taker take) {
  for (int first = 0; first < layout.unitsAcross; first += kGroupUnits) {
    group.Work(planes, first, unitY);
    take(first, std::min(kGroupUnits, layout.unitsAcross - first));
  }
}

// Takes the blocks of one component in the unit (unitX, unitY), row by row.
void TakeUnit(const UnitGroup& group, const Layout& layout, int component, int unit, int unitX, int unitY,
              ScanSymbols& scan) {
  const SamplingFactor& factor = layout.Factor(component);
  const auto at = static_cast<std::size_t>(component);
  const int across = layout.blocksAcross[at] - unitX * factor.horizontal;
  const int down = layout.blocksDown[at] - unitY * factor.vertical;
  for (int y = 0; y < factor.vertical; ++y) {
    for (int x = 0; x < factor.horizontal; ++x) {
      if (x < across && y < down) {
        scan.Take(component, group.Block(component, unit, x, y));
      } else {
        scan.TakeBeyond(component);
      }
    }
  }
}

// Unit by unit, component by component (ITU-T T.81, A.2.3).
void TakeInterleaved(const UnitGroup& group, const Layout& layout, int first, int units, int unitY,
                     ScanSymbols& scan) {
  for (int unit = 0; unit < units; ++unit) {
    for (int component = 0; component < layout.components; ++component)
      TakeUnit(group, layout, component, unit, first + unit, unitY, scan);
  }
}

// The blocks of one component in a row of units, gathered until the row is complete: a scan of its own goes
// through each row of blocks from edge to edge.
class BlockRows {
 public:
  BlockRows(const Layout& layout, int component)
      : layout_(layout),
        component_(component),
        factor_(layout.Factor(component)),
        stride_(layout.unitsAcross * factor_.horizontal),
        blocks_(static_cast<std::size_t>(stride_ * factor_.vertical)) {}

  void Gather(const UnitGroup& group, int first, int units) {
    for (int y = 0; y < factor_.vertical; ++y) {
      for (int x = 0; x < units * factor_.horizontal; ++x) {
        At(first * factor_.horizontal + x, y) =
            group.Block(component_, x / factor_.horizontal, x % factor_.horizontal, y);
      }
    }
  }

  // Only the blocks that hold a part of the picture belong to the scan (ITU-T T.81, A.2.2).
  void Take(int unitY, ScanSymbols& scan) {
    const auto at = static_cast<std::size_t>(component_);
    const int rows = std::min(factor_.vertical, layout_.blocksDown[at] - unitY * factor_.vertical);
    for (int y = 0; y < rows; ++y) {
      for (int x = 0; x < layout_.blocksAcross[at]; ++x)
        scan.Take(component_, At(x, y));
    }
  }

 private:
  CodedBlock& At(int x, int y) {
    return blocks_[static_cast<std::size_t>(y) * static_cast<std::size_t>(stride_) +
                   static_cast<std::size_t>(x)];
  }

  const Layout& layout_;
  int component_;
  SamplingFactor factor_;
  int stride_;
  std::vector<CodedBlock> blocks_;
};

void CollectInterleaved(const ColourPlanes& planes, const Layout& layout, UnitGroup& group,
                        ScanSymbols& scan) {
  for (int unitY = 0; unitY < layout.unitsDown; ++unitY) {
    ForEachGroup(planes, layout, group, unitY,
                 [&](int first, int units) { TakeInterleaved(group, layout, first, units, unitY, scan); });
  }
}

void CollectApart(const ColourPlanes& planes, const Layout& layout, UnitGroup& group,
                  std::vector<ScanSymbols>& scans) {
  std::vector<BlockRows> rows;
  rows.reserve(scans.size());
  for (int i = 0; i < layout.components; ++i)
    rows.emplace_back(layout, i);
  for (int unitY = 0; unitY < layout.unitsDown; ++unitY) {
    ForEachGroup(planes, layout, group, unitY, [&](int first, int units) {
      for (BlockRows& component : rows)
        component.Gather(group, first, units);
    });
    for (std::size_t i = 0; i < rows.size(); ++i)
      rows[i].Take(unitY, scans[i]);
  }
}

}  // namespace

std::vector<ScanSymbols> CollectScans(const ColourPlanes& planes, const Layout& layout,
                                      const std::array<Quantizer, 2>& quantizers, const Kernels& kernels) {
  UnitGroup group(layout, quantizers, kernels);
  std::vector<ScanSymbols> scans(static_cast<std::size_t>(layout.Scans()));
  if (layout.Scans() == 1) {
    CollectInterleaved(planes, layout, group, scans.front());
  } else {
    CollectApart(planes, layout, group, scans);
  }
  return scans;
}

}  // namespace vintoral
