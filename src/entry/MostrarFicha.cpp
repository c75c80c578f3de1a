#include "common/Numbers.h"
#include "entry/Puesto.h"
#include "station/form1/Filas.h"
#include "station/form1/Form1.h"
#include "station/form1/Fotos.h"

namespace vintoral {
namespace {

void OfrecerFactura(Form1& form) {
  if (form.PctBoton[boton::kFacturas].BorderStyle != 1) return;
  form.ChkFactura.Tag = "0"_w;  // it is ticked once for each display
  form.ChkFactura.Value = 0;
  form.ChkFactura.Enabled = false;
  form.ChkFactura.Visible = true;
  form.ImgIndicador[indicador::kImprimirFactura].Visible = true;
}

void MostrarRegistro(Form1& form) {
  EscribirFilas(form, form.FichaActual);
  for (TextBox& field : form.TxtCampo) {
    field.Visible = false;
    field.Locked = true;
  }
}

void MostrarFotoEntrada(Form1& form) {
  MostrarFotoFicha(form, RutaFotoAdentro(form, form.NumeroEscrito()));
}

void MostrarUsuario(Form1& form) {
  MostrarFotoUsuario(form, form.FichaActual.UsuarioPuntos);
  form.ImgPuntos.Tag = "0"_w;
  form.ImgPuntos.Visible = true;
  form.PuntosAcumulados = form.LeerPuntosUsuario(form.FichaActual.UsuarioPuntos);
  form.PuntosEstadia = 0;
}

void MostrarFichaAdentro(Form1& form) {
  OfrecerFactura(form);
  form.PctBoton[boton::kGuardar].Visible = false;
  form.PctBoton[boton::kRetirar].Visible = true;
  if (form.TxtBarCode.Visible) {
    form.TxtBarCodeOK.Visible = true;
    form.TxtBarCodeOK.BackColor = kYellow;
  }
  MostrarRegistro(form);
  form.MarcarCelda();
  form.SetFocus(nullptr);  // the cash line takes the focus with its first step
  form.MostrarFotosAdicionales();
  MostrarFotoEntrada(form);
  MostrarUsuario(form);
  form.LblValor.Visible = false;
  form.TmrHoraFecha_Timer();
}

void MostrarFichaNueva(Form1& form) {
  form.ChkFactura.Tag = "0"_w;
  form.ChkFactura.Visible = false;
  form.ImgIndicador[indicador::kImprimirFactura].Visible = false;
  form.PctBoton[boton::kGuardar].Visible = true;
  form.PctBoton[boton::kRetirar].Visible = false;
  form.NumeroFotos = form.FotoActual = 0;  // photos may be taken without Enter behind the plate
  form.TxtCampo[0].Locked = true;
  form.LblCampo[0].Visible = false;
  for (std::size_t i = 1; i < form.TxtCampo.size(); ++i) {
    form.TxtCampo[i].Locked = false;
    form.TxtCampo[i].Visible = true;
    form.LblCampo[i].Visible = false;
  }
  form.CboTarifa[1].Select(0);
  form.CboTarifa[1].Visible = true;
}

}  // namespace

void Form1::MostrarFicha() {
  if (!HayConexion()) return;
  SalirDeCelda();
  CarpetaMostrada = CarpetaCompartida;
  const std::optional<RegistroFicha> puesto = LeerPuesto(*this, NumeroEscrito());
  if (!puesto) return;
  FichaActual = *puesto;
  if (FichaActual.EnUso) {
    MostrarFichaAdentro(*this);
  } else {
    MostrarFichaNueva(*this);
  }
}

}  // namespace vintoral
