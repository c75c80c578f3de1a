// Commands whose logic is their own.
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::ImgCambiarFondo_Click() {
  FilFondos.List = platform_.disk.List("Fondos", ".jpg");  // pictures come and go while the station runs
  const auto files = static_cast<int>(FilFondos.List.size());
  if (files == 0) return;
  FilFondos.ListIndex = (FilFondos.ListIndex + 1) % files;
  ImgFondo.Tag = String(std::to_string(FilFondos.ListIndex));
  MostrarFondo();
}

void Form1::AlternarMemoriaRostros() {
  ImgIndicador[2].Visible = !ImgIndicador[2].Visible;
  MidiWav(ImgIndicador[2].Visible ? "ABRiL\\ABRiL-6.wav" : "ABRiL\\ABRiL-5.wav");
}

void Form1::AlternarCodigoBarras() {
  LimpiarCampos();
  PctBoton[10].Tag = "2"_w;  // keeps the ticket button from reacting to the switch
  CambiarModoFicha();
  if (CmdBarCode.Visible) {
    const String text =
        "Recuerde instalar la fuente para imprimir códigos de barras presionando  Ctrl + \"B\"  y verificar la configuración de su impresora para aceptar códigos Code39."_w;
    platform_.screen.Show(
        {"Vintoral - Instalar Fuente"_w, text, Icon::kInformation, {Answer::kOk}, Answer::kOk});
    MidiWav("ABRiL\\ABRiL-7.wav");
  } else {
    MidiWav("ABRiL\\ABRiL-8.wav");
  }
  PctBoton[10].Tag = "0"_w;
}

void Form1::OlvidarServidor() {
  const std::string_view file = "Objetos\\Servidor.INI";
  platform_.disk.ClearReadOnly(file).PassOver();
  platform_.disk.Remove(file).PassOver();
  static_cast<void>(CargarServidor());
}

}  // namespace vintoral
