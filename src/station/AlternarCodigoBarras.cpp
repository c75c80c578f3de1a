#include "station/form1/Form1.h"
#include "station/form1/Sonidos.h"

namespace vintoral {
namespace {

void RecallFont(Form1& form) {
  const String text =
      "Recuerde instalar la fuente para imprimir códigos de barras presionando  Ctrl + \"B\"  y verificar la configuración de su impresora para aceptar códigos Code39."_w;
  form.Devices().screen.Show(
      {"Vintoral - Instalar Fuente"_w, text, Icon::kInformation, {Answer::kOk}, Answer::kOk});
}

}  // namespace

void Form1::AlternarCodigoBarras() {
  LimpiarCampos();
  PictureBox& tickets = PctBoton[boton::kTiquetes];
  tickets.Tag = "2"_w;  // keeps the button from reacting to the switch
  CambiarModoFicha();
  if (CmdBarCode.Visible) {
    RecallFont(*this);
    MidiWav(voz::kBarrasActivadas);
  } else {
    MidiWav(voz::kBarrasDesactivadas);
  }
  tickets.Tag = "0"_w;
}

}  // namespace vintoral
