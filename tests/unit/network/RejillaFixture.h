// A connected gate with fichas inside, each with a photo or without.
#pragma once

#include "common/Numbers.h"
#include "support/MemoryStation.h"
#include "support/Photos.h"

namespace vintoral::test {

inline String FotoDentro(int number) {
  return "Multimedia\\Imágenes ACT\\"_w + Digits(number, 6) + ".jpg"_w;
}
inline String FotoFuera(int row) {
  return "Multimedia\\Imágenes HST\\"_w + Digits(row, 6) + ".jpg"_w;
}

class RejillaTest : public testing::Test {
 protected:
  RejillaTest() {
    Station.StartConnected();
    Disk.CreateFolder("Multimedia\\Imágenes ACT"_w).PassOver();
    Disk.CreateFolder("Multimedia\\Imágenes HST"_w).PassOver();
  }

  static RegistroFicha Ficha(int number) {
    RegistroFicha ficha;
    ficha.EnUso = true;
    ficha.MarcaEntrada = "13:30  (20/11/2026)";
    ficha.MarcaSalida = "??";
    ficha.NumeroFicha = Digits(number, 4);
    ficha.Placa = "ABC"_w + Digits(number);
    ficha.Nombre = "ANA";
    ficha.Apellido = "RUIZ";
    ficha.Telefono = "555";
    ficha.Observacion = "ROJO";
    ficha.Categoria = "AUTOMOVIL";
    ficha.PorteriaEntrada = "01";
    ficha.PorteriaSalida = "??";
    ficha.Posicion = number;
    return ficha;
  }
  static RegistroFicha Salida(int row, int number, const char* stamp) {
    RegistroFicha ficha = Ficha(number);
    ficha.EnUso = false;
    ficha.MarcaSalida = std::string_view(stamp);
    ficha.PorteriaSalida = "01";
    ficha.Posicion = row;
    return ficha;
  }
  /// Fichas 1 to `count` are inside, and the grid shows them.
  void Fill(int count) {
    for (int number = 1; number <= count; ++number)
      Station.PutSlot(static_cast<std::size_t>(number), Ficha(number));
    Form.RefrescarVista();
    Station.Events.Take();
  }
  void PutHistory(const std::vector<RegistroFicha>& rows) {
    std::string bytes;
    for (const RegistroFicha& row : rows) {
      const auto record = row.Encode();
      bytes.append(record.data(), record.size());
    }
    Disk.Put("Multimedia\\Vintoral.HST", bytes);
  }
  void Free(int number) {
    RegistroFicha ficha = Ficha(number);
    ficha.EnUso = false;
    ficha.PorteriaSalida = "02";
    Station.PutSlot(static_cast<std::size_t>(number), ficha);
  }
  void Hover(int cell) { Station.Hands.Hover(Form.ImgFicha[static_cast<std::size_t>(cell)]); }
  void Leave() { Station.Hands.Leave(Form); }
  void Click(int cell) { Station.Hands.Click(Form.ImgFicha[static_cast<std::size_t>(cell)]); }
  void Press(boton::Index button) { Form.PctBoton_Click(static_cast<int>(button)); }

  /// The cells that are shown, by their numbers.
  std::vector<std::string> Cells() const {
    std::vector<std::string> numbers;
    for (const Image& cell : Form.ImgFicha) {
      if (cell.Visible) numbers.push_back(cell.Caption.Bytes() + (cell.Picture.Empty() ? "" : "*"));
    }
    return numbers;
  }
  std::string Page() const { return Form.LblInfo[0].Caption.Bytes(); }

  MemoryStation Station;
  Form1& Form = Station.Form;
  MemoryDisk& Disk = Station.Disk;
};

}  // namespace vintoral::test
