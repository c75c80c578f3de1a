// The station: the current folder is its folder.
#include <QApplication>
#include <QDir>
#include <cstdlib>
#include <optional>

#include "app/EndSignals.h"
#include "app/LeaveWithin.h"
#include "app/Station.h"
#include "app/Toolkit.h"

int main(int argc, char** argv) {
  vintoral::Toolkit application(argc, argv);
  std::optional<vintoral::Station> station;
  // Before it begins: whatever the start makes, a signal ends it in good order.
  const vintoral::EndSignals signals([&station] { station->EndWithoutAsking(); });
  station.emplace(QDir::currentPath().toStdString());
  const int result = QApplication::exec();
  vintoral::LeaveWithin(station->Left(), result);  // nobody serves a timer any more
  // All that was confirmed is on the disk, and nobody can wait for a folder that hangs.
  if (!station->HasEnded()) std::_Exit(result);
  return result;
}
