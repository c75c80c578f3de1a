// The station: the current folder is its folder.
#include <QApplication>
#include <QDir>

#include "app/EndSignals.h"
#include "app/Station.h"
#include "window/controls/Theme.h"

int main(int argc, char** argv) {
  vintoral::Station::PrepareToolkit();
  QApplication application(argc, argv);
  vintoral::theme::Apply(application);
  vintoral::Station station(QDir::currentPath().toStdString());
  const vintoral::EndSignals signals([&station] { station.Form.CerrarSinPreguntar(); });
  return station.Start() ? QApplication::exec() : 0;
}
