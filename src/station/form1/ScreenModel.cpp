#include "station/form1/ScreenModel.h"

namespace vintoral {

ScreenModel::ScreenModel() : Form("Form1") {
  NameAll();
  DesignFields();
  DesignInfo();
  DesignHidden();
  DesignTimers();
  SetFocus(&TxtCampo[0]);
}

#define NAME(control) Add(control, #control)

void ScreenModel::NameAll() {
  // In the order in which the keyboard goes round: what is read first, what is typed, what the ticket is
  // worth.
  NAME(TxtBarCode), NAME(TxtCampo), NAME(TxtEtiqueta), NAME(PctEtiqueta), NAME(LblCampo);
  NAME(CboTarifa), NAME(TxtMaxEntrada), NAME(LstModEntrada), NAME(LblCategoria), NAME(LblFechaEnt),
      NAME(LblFechaSal), NAME(LblValor);
  NAME(TxtEfectivo), NAME(LblCambio), NAME(LblInfo), NAME(LblIndicador), NAME(LblConexion);
  NAME(ImgIndicador), NAME(ChkFactura), NAME(PctUsuario), NAME(ImgUsuario), NAME(LblPuntos), NAME(ImgPuntos);
  NAME(Picture1), NAME(Picture2), NAME(Picture4), NAME(dspPreview), NAME(CboDriver);
  NAME(ImgFotoDetalle), NAME(LblFotoDetalle), NAME(PctFotoDetalle), NAME(FilAppCam);
  NAME(LblWebCamMsg), NAME(PctAppCamera), NAME(CmdBarCode), NAME(CmdNumeroFicha);
  NAME(TxtBarCodeOK), NAME(CboMinutos);
  NAME(PctBoton), NAME(PctBuscar), NAME(ImgFicha), NAME(PctFicha), NAME(ShpCelda), NAME(PctSeleccion);
  NAME(FraFicha), NAME(ImgFondo), NAME(LblFondo), NAME(FilFondos), NAME(ImgCambiarFondo);
  NAME(ImgPanico), NAME(ImgContador), NAME(LblAyuda);
  NAME(TmrHoraFecha), NAME(TmrHorario), NAME(TmrMonitor), NAME(TmrConexion), NAME(TmrBarCode);
}

#undef NAME

const std::array<String, 6>& ScreenModel::LabelsAsDesigned() {
  static const std::array<String, 6> labels = {"NUMERO FICHA "_w, "PLACA/DOCUMENTO "_w, "NOMBRE "_w,
                                               "APELLIDO "_w,     "TELEFONO "_w,        "OBSERVACION "_w};
  return labels;
}

void ScreenModel::DesignFields() {
  const std::array<String, 6>& labels = LabelsAsDesigned();
  constexpr std::size_t kFieldWidth = 20;  // what a register holds of each
  for (std::size_t i = 0; i < labels.size(); ++i) {
    TxtEtiqueta[i].SetText(labels[i]);
    TxtEtiqueta[i].Locked = true;
    TxtEtiqueta[i].MaxLength = kFieldWidth;
    TxtEtiqueta[i].CanFocus = false;  // a click on its panel opens it
    LblCampo[i].BackColor = kLightOrange;
    if (i > 0) TxtCampo[i].MaxLength = kFieldWidth;
  }
  CboTarifa[0].Visible = false;
  CboTarifa[0].CanFocus = false;
  LblCategoria.Caption = "CATEGORIA "_w;
  TxtEfectivo.SetText("0"_w);
}

void ScreenModel::DesignInfo() {
  LblFechaEnt.Caption = "CONECTANDO... "_w;
  LblInfo[0].Caption = "0 ( 1/1 )  "_w;
  LblAyuda.Caption = String(kTitulo);
  LblIndicador[0].Caption = "SAL"_w;
  LblIndicador[1].Caption = "ENT"_w;
  LblIndicador[0].Visible = false;
  for (Label& bar : LblConexion)
    bar.BackColor = kLightRed;

  const std::array<String, indicador::kCount> tips = {
      " Bloqueo de Funciones (Activado) "_w, " Turno de Trabajo (Activado) "_w,
      " Memoria de Rostros (Activado) "_w,   " Fotos Adicionales "_w,
      " Cámara Web Desactivada "_w,          " Imprimir Factura "_w};
  for (std::size_t i = 0; i < tips.size(); ++i) {
    ImgIndicador[i].ToolTipText = tips[i];
    ImgIndicador[i].Visible = false;
  }
  for (const int minutes : {15, 30, 45, 60, 90, 120, 150, 180}) {
    CboMinutos.AddItem(String(std::to_string(minutes)) + " Minutos"_w);
  }
  CboMinutos.Editable = true;
  CboMinutos.Enabled = false;
  CboMinutos.Tag = "0"_w;
  CmdNumeroFicha.ToolTipText = "<INICIO> Generador Automático de Fichas"_w;
  CmdBarCode.ToolTipText = "<INICIO> Generador de Códigos de Barras Code39"_w;
  ImgPuntos.ToolTipText = "<CTRL+MAYUS+R> Reiniciar Total Puntos"_w;
  TxtBarCodeOK.CanFocus = false;  // a sign
  PctFicha.Tag = "0"_w;
  FraFicha.CanFocus = true;  // the pointer can be moved over the grid by keys
  FilFondos.Pattern = "*.jpg"_w;
  FilAppCam.Pattern = "*.jpg;*.jpeg"_w;
  PctFotoDetalle[0].ToolTipText = "<CTRL+A> Tomar Fotos Adicionales"_w;
  PctFotoDetalle[1].ToolTipText = "<CTRL+X> Tomar Fotos Continuas"_w;
}

void ScreenModel::DesignHidden() {
  const auto hide = [](auto&... controls) { ((controls.Visible = false), ...); };
  const auto hideAll = [](auto& family) {
    for (auto& control : family)
      control.Visible = false;
  };
  hide(LblValor, TxtEfectivo, LblCambio, ChkFactura, ImgUsuario, ImgPuntos, Picture2, Picture4, LblWebCamMsg);
  hide(LblFotoDetalle, PctAppCamera, CmdBarCode, CmdNumeroFicha, TxtBarCode, TxtBarCodeOK, TxtMaxEntrada,
       LstModEntrada);
  hide(PctFicha, ShpCelda, PctSeleccion, FilFondos, ImgPanico, dspPreview, CboDriver, FilAppCam);
  hideAll(PctUsuario);
  hideAll(LblPuntos);
  hideAll(ImgFotoDetalle);
  hideAll(PctFotoDetalle);
  hideAll(PctBuscar);
  hideAll(ImgFicha);
  hide(PctBoton[boton::kGuardar], PctBoton[boton::kRetirar]);
  PctUsuario[0].Enabled = false;
  CmdNumeroFicha.Enabled = false;
  CmdBarCode.Enabled = false;
  LstModEntrada.List = {"ENT(S)"_w, "DIA(S)"_w};
  LstModEntrada.ListIndex = 0;
}

void ScreenModel::DesignTimers() {
  TmrHoraFecha.SetInterval(500);
  TmrHorario.SetInterval(500);
  TmrMonitor.SetInterval(7000);
  TmrConexion.SetInterval(kConnectingInterval);
  TmrBarCode.SetInterval(1000);
  for (Timer* timer : Timers())
    timer->Enabled = false;
}

}  // namespace vintoral
