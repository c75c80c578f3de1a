// What the tests of the two windows share in which the formats of slips are edited.
#pragma once

#include "gui/Gate.h"
#include "window/controls/SlipText.h"

namespace vintoral::test {

class Slips : public Gate {
 protected:
  Slips() {
    printer_.Installed = {{"Oficina"_w, "Tira 80"_w}, "Tira 80"_w};
    Start();
  }
  enum { kHeader, kPreview, kFooter };
  SlipText& Text(int part) { return Face<SlipText>(QStringLiteral("TxtEtiqueta(%1)").arg(part)); }
  QString Line(int part, int line);
  /// Where a widget stands in the dialog.
  QRect Place(const QString& name);
  /// Where these characters of a part stand in the dialog, by the toolkit's own account.
  QRect Characters(int part, int line, int column, int count);
  /// Where the paper ends in the dialog, in the middle of this line of a part, by what is painted there:
  /// the first stroke on what is otherwise blank from column 28 on.
  double Edge(int part, int line);
  /// The focus goes from control to control by Tab, in this order, and round.
  void ExpectTabOrder(const QStringList& names);
  void ExpectTickBeside(const QString& tick, int line);
  /// Everything has its place at the smallest size and at this one.
  void ExpectAllInside(const Form& form);
  void HoverOver(const QString& name);
  std::vector<DeviceEvent> Printed();
};

}  // namespace vintoral::test
