#include "common/Numbers.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::MostrarFicha() {
  if (!HayConexion()) return;
  const std::optional<RegistroFicha> puesto = LeerPuesto(NumeroDeFicha());
  if (!puesto) return;
  FichaActual = *puesto;
  if (FichaActual.EnUso) {
    MostrarFichaAdentro();
  } else {
    MostrarFichaNueva();
  }
}

void Form1::MostrarFichaAdentro() {
  const RegistroFicha& ficha = FichaActual;
  if (PctBoton[14].BorderStyle == 1) {
    ChkFactura.Tag = "0"_w;  // it is ticked once for each display
    ChkFactura.Value = 0;
    ChkFactura.Enabled = false;
    ChkFactura.Visible = true;
    ImgIndicador[5].Visible = true;
  }
  PctBoton[5].Visible = false;
  PctBoton[6].Visible = true;
  if (TxtBarCode.Visible) {
    TxtBarCodeOK.Visible = true;
    TxtBarCodeOK.BackColor = kYellow;
  }
  LblFechaEnt.BackColor = kLightYellow;
  LblFechaSal.BackColor = kYellow;
  LblFechaEnt.Caption = ficha.MarcaEntrada.Trimmed();
  const std::array<String, 6> values = {ficha.NumeroFicha.Trimmed(), ficha.Placa.Trimmed(),
                                        ficha.Nombre.Trimmed(),      ficha.Apellido.Trimmed(),
                                        ficha.Telefono.Trimmed(),    ficha.Observacion.Trimmed()};
  for (std::size_t i = 0; i < values.size(); ++i) {
    LblCampo[i].BackColor = kYellow;
    LblCampo[i].Caption = values[i];
    LblCampo[i].Visible = true;
    TxtCampo[i].Visible = false;
    TxtCampo[i].Locked = true;
  }
  CboTarifa[0].Clear();
  CboTarifa[0].SetText(ficha.Categoria.Trimmed());
  CboTarifa[0].Visible = true;
  CboTarifa[1].Visible = false;
  MostrarCelda();
  SetFocus(nullptr);  // the cash line takes the focus with its first step

  MostrarFotoEntrada();
  MostrarFotoUsuario(ficha.UsuarioPuntos);
  ImgPuntos.Tag = "0"_w;
  ImgPuntos.Visible = true;
  PuntosAcumulados = LeerPuntosUsuario(ficha.UsuarioPuntos);
  PuntosEstadia = 0;
  LblValor.Visible = false;
  TmrHoraFecha_Timer();
}

void Form1::MostrarFotoEntrada() {
  const String foto = RutaCompartida("Imágenes ACT\\"_w + Digits(NumeroDeFicha(), 6) + ".jpg"_w);
  const bool hayFoto = platform_.disk.Exists(foto);
  Picture2.Picture = hayFoto ? foto : String();
  Picture2.Visible = hayFoto;
  Picture1.Visible = !hayFoto;
  LblWebCamMsg.Visible = false;
}

void Form1::MostrarFotoUsuario(std::int32_t numero) {
  const String foto = RutaCompartida("Imágenes USR\\"_w + Digits(numero, 6) + ".jpg"_w);
  if (!platform_.disk.Exists(foto)) return;
  ImgUsuario.Picture = PctUsuario[0].Picture = foto;
  ImgUsuario.Visible = PctUsuario[1].Visible = true;
}

void Form1::MostrarFichaNueva() {
  ChkFactura.Tag = "0"_w;
  ChkFactura.Visible = false;
  ImgIndicador[5].Visible = false;
  PctBoton[5].Visible = true;
  PctBoton[6].Visible = false;
  TxtCampo[0].Locked = true;
  LblCampo[0].Visible = false;
  for (std::size_t i = 1; i < TxtCampo.size(); ++i) {
    TxtCampo[i].Locked = false;
    TxtCampo[i].Visible = true;
    LblCampo[i].Visible = false;
  }
  CboTarifa[1].Select(0);
  CboTarifa[1].Visible = true;
}

void Form1::MostrarCelda() {
  ShpCelda.Cell = -1;
  ShpCelda.Visible = true;
  for (std::int32_t cell = 0; cell < kGridCells && InicioPagina + cell <= TotalVista(); ++cell) {
    const RegistroFicha& shown = VistaFichas[static_cast<std::size_t>(InicioPagina + cell - 1)];
    if (shown.Posicion == NumeroDeFicha()) ShpCelda.Cell = cell;
  }
}

}  // namespace vintoral
