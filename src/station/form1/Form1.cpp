#include "station/form1/Form1.h"

#include <algorithm>

#include "common/Numbers.h"
#include "station/form1/Bloqueos.h"
#include "station/form1/Commands.h"
#include "station/forms/Input.h"
#include "station/forms/ReglasTeclas.h"

namespace vintoral {

Form1::Form1(const Platform& platform)
    : OpenForms(*this, platform.screen, platform.clock), platform_(platform) {
  for (Timer* timer : Timers())
    timer->UseClock(platform_.clock);
  ConectarCampos();
  ConectarEtiquetas();
  ConectarBotones();
  ConectarRejilla();
  ConectarRelojes();
  ConectarCamara();
}

void Form1::ConectarCampos() {
  for (Control* control : Controls()) {
    if (auto* box = dynamic_cast<TextBox*>(control)) box->KeyRule = TextFieldKey;
  }
  for (std::size_t i = 0; i < TxtCampo.size(); ++i) {
    TxtCampo[i].OnEnter = [this, i] { AvanzarCampo(i); };
    if (i > 0) TxtCampo[i].OnChange = [this, i] { TxtCampo[i].RaiseToCapitals(); };
  }
  TxtCampo[0].KeyRule = NumberFieldKey;
  TxtCampo[2].OnClick = [this] {
    if (!TxtCampo[1].Locked) AvanzarCampo(1);
  };
  CboTarifa[1].OnEnter = [this] { GuardarFicha(); };
  TxtEfectivo.KeyRule = CashFieldKey;
  TxtEfectivo.OnEnter = [this] { RetirarFicha(); };
  TxtBarCode.OnChange = [this] { TxtBarCode_Change(); };
  TxtBarCode.KeyRule = [this](char character) {
    return FichaEnCurso() ? KeyVerdict::kDrop : TextFieldKey(character);
  };
  TxtMaxEntrada.KeyRule = CashFieldKey;
  TxtMaxEntrada.MaxLength = kLargoValidez;
  TxtMaxEntrada.OnGotFocus = [this] { TxtMaxEntrada.Select(0, kLargoValidez); };
  CboMinutos.KeyRule = [this](char character) {
    // A digit over "15 Min. ATRAS" starts a new number.
    const bool digit = character >= '0' && character <= '9';
    if (digit && ContainsNoCase(CboMinutos.Text(), "Min")) CboMinutos.SetText({});
    return MinutesKey(character);
  };
  CboMinutos.OnChoose = [this] { CambiarMinutos(); };
  CboMinutos.OnEnter = [this] {
    CambiarMinutos();
    FocoDondeSeEscribe();
  };
}

void Form1::ConectarEtiquetas() {
  for (std::size_t i = 0; i < TxtEtiqueta.size(); ++i) {
    TextBox& label = TxtEtiqueta[i];
    label.OnChange = [&label] { label.RaiseToCapitals(); };
    label.OnEnter = label.OnLostFocus = [this, i] { CerrarEtiqueta(i); };
    label.OnClick = PctEtiqueta[i].OnClick = [this, i] { AbrirEtiqueta(i); };
  }
}

void Form1::ConectarBotones() {
  for (std::size_t i = 0; i < PctBoton.size(); ++i) {
    const int index = static_cast<int>(i);
    PctBoton[i].OnClick = [this, index] { ClickEnBarra(index); };
    PctBoton[i].OnHover = [this, index] {
      SalirDeCelda();
      PctBoton_MouseMove(index);
    };
    PctBoton[i].ToolTipAhead = [this, i] { return ToolTipOf(PctBoton[i], static_cast<boton::Index>(i)); };
  }
  // Two quick presses are two pages.
  for (const boton::Index page : {boton::kRetroceder, boton::kAvanzar})
    PctBoton[page].OnDoubleClick = PctBoton[page].OnClick;
  CmdBarCode.OnClick = CmdNumeroFicha.OnClick = [this] { GeneradorClick(); };
  ImgCambiarFondo.OnClick = [this] { ImgCambiarFondo_Click(); };
  ChkFactura.OnClick = [this] {
    const int wanted = ChkFactura.Value;
    ChkFactura.Value = 1 - wanted;  // as long as a box may say that it is locked
    if (Permite(bloqueo::kFacturas)) ChkFactura.Value = wanted;
  };
  ImgPanico.OnClick = [this] { ImgPanico_Click(); };
  ImgPuntos.OnClick = [this] { Form_KeyDown('R', keys::kShift | keys::kControl); };
}

void Form1::ConectarRejilla() {
  for (std::size_t i = 0; i < ImgFicha.size(); ++i) {
    const int cell = static_cast<int>(i);
    ImgFicha[i].OnHover = [this, cell] { ImgFicha_MouseMove(cell); };
    ImgFicha[i].OnClick = [this, cell] {
      ImgFicha_MouseMove(cell);  // whoever clicks on a cell points at it
      ImgFicha_Click(cell);
    };
  }
  for (Label& row : LblCampo)
    row.OnClick = [this] { LblCampo_Click(); };
  ImgContador.OnClick = [this] { ImgContador_Click(); };
  // Whatever else the pointer is over, it is not over a cell.
  for (Control* control : Controls()) {
    if (!control->OnHover && control != &ShpCelda) control->OnHover = [this] { SalirDeCelda(); };
  }
  FraFicha.OnLostFocus = [this] { SalirDeCelda(); };
}

void Form1::ConectarRelojes() {
  TmrHoraFecha.OnTick = [this] { TmrHoraFecha_Timer(); };
  TmrHorario.OnTick = [this] { TmrHorario_Timer(); };
  TmrMonitor.OnTick = [this] { TmrMonitor_Timer(); };
  TmrConexion.OnTick = [this] { TmrConexion_Timer(); };
  TmrBarCode.OnTick = [this] { TmrBarCode_Timer(); };
}

void Form1::ConectarCamara() {
  dspPreview.UseDevices(platform_.camera, platform_.disk, [this] { WebCamConectar(0); });
  for (std::size_t i = 0; i < PctFotoDetalle.size(); ++i) {
    const int index = static_cast<int>(i);
    PctFotoDetalle[i].OnClick = [this, index] { PctFotoDetalle_Click(index); };
    ImgFotoDetalle[i].OnClick = [this, index] { ImgFotoDetalle_Click(index); };
  }
  PctAppCamera.OnClick = [this] { AbrirAppCamera(); };
}

void Form1::ClickEnBarra(int index) {
  // The fields keep the focus when a button is clicked, but a label that was being renamed is left.
  const bool renaming = std::any_of(TxtEtiqueta.begin(), TxtEtiqueta.end(),
                                    [this](const TextBox& label) { return &label == Focus(); });
  if (renaming) SetFocus(nullptr);
  PctBoton_Click(index);
  if (renaming && Focus() == nullptr) FocoDondeSeEscribe();
}

std::int64_t Form1::NumeroEscrito() const {
  return LeadingInteger(Trim(TxtCampo[0].Text()));
}

std::span<const RegistroFicha> Form1::Pagina() const {
  const std::span<const RegistroFicha> view(VistaFichas);
  const auto first = std::min(static_cast<std::size_t>(InicioPagina - 1), view.size());
  return view.subspan(first, std::min(view.size() - first, ImgFicha.size()));
}

bool Form1::FichaEnCurso() const {
  return PctBoton[boton::kGuardar].Visible || PctBoton[boton::kRetirar].Visible;
}

bool Form1::FichaEnPantalla() const {
  return std::all_of(TxtCampo.begin(), TxtCampo.end(), [](const TextBox& field) { return field.Locked; });
}

void Form1::FocoDondeSeEscribe() {
  // The code of a ficha that is under way stands, and nobody types into it.
  if (!FichaEnCurso() && TxtBarCode.TakesFocus()) return SetFocus(&TxtBarCode);
  if (TxtEfectivo.TakesFocus()) return SetFocus(&TxtEfectivo);
  FocoPrimerCampo();
}

void Form1::FocoPrimerCampo() {
  const auto open = std::find_if(TxtCampo.begin(), TxtCampo.end(),
                                 [](const TextBox& field) { return field.TakesFocus() && !field.Locked; });
  SetFocus(open == TxtCampo.end() ? nullptr : &*open);
}

void Form1::Terminar() {
  if (Terminado()) return;  // a tick under the last box may have ended it already
  OpenForms.End();
  platform_.system.End();
}

bool Form1::Preguntar(const String& titulo, const String& texto, Answer preseleccionada) {
  const Box box{titulo, texto, Icon::kExclamation, {Answer::kYes, Answer::kNo}, preseleccionada};
  return platform_.screen.Show(box) == Answer::kYes;
}

String Form1::ProtegidaContraEscritura() const {
  return "La carpeta '"_w + platform_.disk.CurrentFolder() + "' está protegida contra escritura."_w;
}

}  // namespace vintoral
