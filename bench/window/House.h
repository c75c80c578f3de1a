// A full house, for what is measured with one.
#pragma once

#include "app/Station.h"
#include "common/Numbers.h"
#include "records/Register.h"

namespace vintoral::bench {

inline constexpr int kFichas = 1000;

/// All but one, as they stand in the register; on the station's thread.
inline void FillHouse(Station& station) {
  RegistroFicha ficha;
  ficha.EnUso = true;
  ficha.MarcaEntrada = StampOf(station.Devices.Clock.Now());
  ficha.MarcaSalida = "??";
  ficha.Categoria = station.Form.CboTarifa[1].Text();
  ficha.PorteriaEntrada = "01";
  ficha.PorteriaSalida = "??";
  Register<RegistroFicha> act(station.Devices.Disk, "Multimedia\\Vintoral.ACT", OpenMode::kReadWrite);
  for (int i = 1; i < kFichas; ++i) {
    ficha.Posicion = i;
    ficha.NumeroFicha = Digits(i, 4);
    ficha.Placa = "AAA"_w + Digits(i, 3);
    act.Write(i, ficha, false).PassOver();
  }
}

/// And on the screen.
inline void ShowHouse(Station& station) {
  station.Do([&] {
    FillHouse(station);
    station.Form.CargarArchivoACT();
    station.Form.ImprimirIndice();
  });
}

}  // namespace vintoral::bench
