#include "reports/form3/Form3.h"

#include "reports/Tiquete.h"
#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"
#include "station/form1/Monitor.h"
#include "station/form1/Papel.h"
#include "station/form1/Sonidos.h"

namespace vintoral {

Form3::Form3(Form1& station) : EditorFormato("Form3", station, "Guardar Formato de Tiquetes"_w) {
  station_.Form3 = this;
  Nombrar();
  ChkFoto.Caption = "Imprimir Foto"_w;
  Mostrar();
  VolverAlBoton(ChkFoto);
  Conectar();
}

void Form3::Nombrar() {
  Add(CboImpresora, "CboImpresora");
  Add(CboDimFuente, "CboDimFuente");
  Add(TxtEtiqueta, "TxtEtiqueta");
  for (std::size_t i = 0; i < ChkEtiqueta.size(); ++i)
    Add(ChkEtiqueta[i], "ChkEtiqueta(" + std::to_string(i + 1) + ")");
  Add(ChkFoto, "ChkFoto");
  Add(PctBoton, "PctBoton");
  Add(CmdPrueba, "CmdPrueba");
  Add(LblDimFuente, "LblDimFuente");
  Add(FraCheck, "FraCheck");
  Add(PctFoto, "PctFoto");
  Add(PctSeleccion, "PctSeleccion");
  Add(LblFondo, "LblFondo");
}

void Form3::Mostrar() {
  TxtEtiqueta[kVista].SetText(Vista());
  if (station_.Devices().disk.Exists(archivo::kTiquete)) {
    const RegistroTiquete& format = station_.TiqueteActual;
    MostrarComunes(format.Impresora.View(), TamanoFuente(format.DimFuente), format.Encabezado.View(),
                   format.Pie.View());
    ChkFoto.Value = format.Foto ? 1 : 0;
    return;
  }
  TxtEtiqueta[kEncabezado].SetText("        V I N T o r a l\r\n      B I E N V E N I D O\r\n"_w);
  TxtEtiqueta[kPie].SetText("\r\n     CONSERVE ESTE TIQUETE\r\n      "_w + Dominio(station_.DireccionWeb()) +
                            "\r\n"_w);
}

String Form3::Vista() const {
  const String lineBreak(kFinDeLinea);
  return "  No.FICHA  nnnn"_w + lineBreak + "HORA/FECHA  hh:mm  (dd/mm/aaaa)"_w + lineBreak + ReglaGuiones() +
         lineBreak + LineasDeCampos() + "CATEGORIA : "_w + Muestra();
}

RegistroTiquete Form3::Formato() const {
  RegistroTiquete format;
  format.Impresora = CboImpresora.Text();
  format.DimFuente = Tamano();
  format.Encabezado = TxtEtiqueta[kEncabezado].Text();
  format.Foto = ChkFoto.Value != 0;
  format.Pie = TxtEtiqueta[kPie].Text();
  return format;
}

void Form3::Guardar() {
  const PictureBox& tickets = station_.PctBoton[boton::kTiquetes];
  const bool switchesOn = !IsPressed(tickets) && tickets.TagNumber() <= Form1::kSoloFormato;
  station_.MidiWav(switchesOn ? voz::kTiquetesActivados : sonido::kClic);
  station_.ActualizarLineaTQT();
  station_.CopiarTiquete();
  station_.ActivarTiquetes();
}

PrintDocument Form3::Prueba() const {
  const Moment now = station_.Devices().clock.Now();
  DatosTiquete sample{.formato = Formato(),
                      .ficha = "0000"_w,
                      .porteria = station_.NumeroPorteria,
                      .marca = StampOf(now),
                      .campos = CamposDePrueba(),
                      .categoria = Muestra(),
                      .foto = station_.Picture2.Picture,
                      .codigo = {},
                      .validez = {"30"_w, Validez::kDias, now},
                      .direccion = station_.DireccionWeb()};
  if (station_.CmdBarCode.Visible) sample.codigo = "PRUEBA000000"_w;
  return TiqueteImpreso(sample);
}

void Form3::Form_Unload() {
  Form_MouseMove();
  station_.Form3 = nullptr;
}

}  // namespace vintoral
