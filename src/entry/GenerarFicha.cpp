#include "common/Numbers.h"
#include "records/LayoutFicha.h"
#include "records/Register.h"
#include "station/form1/Form1.h"
#include "station/form1/Sonidos.h"

namespace vintoral {
namespace {

/// The first free slot from this gate's first number on, 0 when all are taken. One that was cut off the end
/// of the register is free.
Result<std::int64_t> PuestoLibre(const Form1& form) {
  constexpr std::size_t kEnUso = coding::OffsetOf(kLayoutFicha, &RegistroFicha::EnUso);
  const Register<RegistroFicha> act(form.Devices().disk, form.RutaCompartida("Vintoral.ACT"),
                                    OpenMode::kRead);
  std::int64_t next = form.PrimerNumero;
  const auto visit = [&](std::int64_t number, std::span<const char, RegistroFicha::kSize> bytes) {
    bool taken = false;
    coding::Code<bool>::Read(bytes.data() + kEnUso, taken);
    if (taken) next = number + 1;
    return taken;
  };
  const Outcome walked = act.WalkBytes(form.PrimerNumero, form.TotalFichas, visit);
  if (!walked) return walked;
  return form.HayPuesto(next) ? next : 0;
}

void AvisarLimite(Form1& form) {
  const bool codes = form.CmdBarCode.Visible;
  const String title =
      codes ? "Vintoral - Generador de Códigos de Barras"_w : "Vintoral - Generador Automático de Fichas"_w;
  const String text =
      codes
          ? "Se ha alcanzado el límite de códigos entregados por esta portería. Por favor vuelva a intentarlo más tarde."_w
          : "Se ha alcanzado el límite de fichas entregadas por esta portería. Por favor vuelva a intentarlo más tarde."_w;
  form.Devices().screen.Show({title, text, Icon::kExclamation, {Answer::kOk}, Answer::kOk});
  form.SetFocus(&form.TxtCampo[0]);
}

/// A ticket for one entry, until the operator makes it a pass.
void AbrirTiquete(Form1& form) {
  form.NumeroPase = 0;
  form.TxtMaxEntrada.Enabled = form.LstModEntrada.Enabled = true;
  form.TxtMaxEntrada.SetText("1"_w);
  form.LstModEntrada.ListIndex = Validez::kEntradas;
  form.TxtMaxEntrada.Visible = form.LstModEntrada.Visible = true;
  form.GenerarCodigoBarras();
}

}  // namespace

void Form1::GenerarFicha() {
  if (!PuedeGenerar() || !platform_.disk.Exists(RutaCompartida("Vintoral.ACT"))) return;
  const std::optional<std::int64_t> libre = PuestoLibre(*this).PassOver();
  if (!libre) return BuscarEnlaceYa();
  if (*libre == 0) return AvisarLimite(*this);
  TxtCampo[0].SetText(Digits(*libre));
  MostrarFicha();
  if (!PctBoton[boton::kGuardar].Visible) return;  // another gate has just taken that slot
  // Whatever stands there and was not accepted is half a code, and the box is about to be emptied.
  if (TxtBarCode.Visible && !TxtBarCodeOK.Visible) AbrirTiquete(*this);
  MidiWav(sonido::kGenerador);
  SetFocus(&TxtCampo[1]);
}

}  // namespace vintoral
