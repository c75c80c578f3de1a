#include "camera/formcamara/FormCamara.h"

#include <algorithm>
#include <charconv>

#include "camera/DSPreview/FormatosCamara.h"
#include "common/Numbers.h"
#include "station/form1/Form1.h"
#include "station/forms/Keys.h"
#include "station/forms/ReglasTeclas.h"

namespace vintoral {
namespace {

constexpr int kPasos = 50;  // from one end of a control to the other

String TextoDe(int number) {
  return String(std::to_string(number));
}

String TextoDe(const CameraMode& mode) {
  return TextoDe(mode.width) + " x "_w + TextoDe(mode.height) + ", "_w + TextoDe(mode.framesPerSecond) +
         " por segundo"_w;
}

/// The value that `text` is of this control; nothing for a text that is none.
std::optional<int> ValorDe(const CameraControl& control, std::string_view text) {
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  const bool whole = error == std::errc() && end == text.data() + text.size();
  if (!whole || value < control.least || value > control.most) return std::nullopt;
  return value;
}

int PasoDe(const CameraControl& control) {
  const std::int64_t range = std::int64_t{control.most} - control.least;
  return static_cast<int>(std::max<std::int64_t>(1, range / kPasos));
}

std::size_t LargoDe(const CameraControl& control) {
  return std::max(TextoDe(control.least).Size(), TextoDe(control.most).Size());
}

}  // namespace

FormCamara::FormCamara(Form1& station)
    : Form("FormCamara"),
      station_(station),
      camara_(station.dspPreview.Source()),
      opciones_(station.dspPreview.Options()),
      formato_(camara_.format) {
  Nombrar();
  LblCamara.Caption = camara_.name;
  LblModo.Caption = "Imagen"_w;
  CmdGuardar.Caption = "GUARDAR"_w;
  CmdCancelar.Caption = "CANCELAR"_w;
  MostrarModos();
  for (std::size_t i = 0; i < kControles; ++i)
    MostrarControl(i);
  Conectar();
  SetFocus(CboModo.Visible ? static_cast<Control*>(&CboModo) : &TxtControl[0]);
}

void FormCamara::Nombrar() {
  Add(LblCamara, "LblCamara");
  Add(LblModo, "LblModo");
  Add(CboModo, "CboModo");
  Add(LblControl, "LblControl");
  Add(CmdMenos, "CmdMenos");
  Add(TxtControl, "TxtControl");
  Add(CmdMas, "CmdMas");
  Add(LblLimites, "LblLimites");
  Add(CmdGuardar, "CmdGuardar");
  Add(CmdCancelar, "CmdCancelar");
}

void FormCamara::MostrarModos() {
  LblModo.Visible = CboModo.Visible = !opciones_.modes.empty();
  CboModo.AddItem("La del dispositivo"_w);
  CboModo.Select(0);
  for (const CameraMode& mode : opciones_.modes) {
    CboModo.AddItem(TextoDe(mode));
    if (mode == formato_.mode) CboModo.Select(static_cast<int>(CboModo.List().size()) - 1);
  }
}

void FormCamara::MostrarControl(std::size_t index) {
  const bool hay = index < opciones_.controls.size();
  LblControl[index].Visible = CmdMenos[index].Visible = TxtControl[index].Visible = CmdMas[index].Visible =
      LblLimites[index].Visible = hay;
  // The arrows do the same where the focus is.
  CmdMenos[index].CanFocus = CmdMas[index].CanFocus = false;
  CmdMenos[index].Caption = "-"_w;
  CmdMas[index].Caption = "+"_w;
  if (!hay) return;
  const CameraControl& control = opciones_.controls[index];
  LblControl[index].Caption = control.label;
  LblLimites[index].Caption = TextoDe(control.least) + " a "_w + TextoDe(control.most);
  TxtControl[index].MaxLength = LargoDe(control);
  TxtControl[index].SetText(TextoDe(control.value));
}

void FormCamara::Conectar() {
  CboModo.OnChoose = [this] { ElegirModo(); };
  CmdGuardar.OnClick = [this] { Guardar(); };
  CmdCancelar.OnClick = [this] { station_.OpenForms.Unload(*this); };
  const std::size_t controles = std::min(kControles, opciones_.controls.size());
  for (std::size_t i = 0; i < controles; ++i) {
    TextBox& text = TxtControl[i];
    const bool negative = opciones_.controls[i].least < 0;
    text.KeyRule = [negative](char character) {
      return negative && character == '-' ? KeyVerdict::kPass : NumberFieldKey(character);
    };
    text.OnGotFocus = [&text] { text.SelectAll(); };
    text.OnChange = [this, i] { Escrito(i); };
    CmdMenos[i].OnClick = [this, i] { Mover(i, -1); };
    CmdMas[i].OnClick = [this, i] { Mover(i, 1); };
  }
}

void FormCamara::ElegirModo() {
  formato_.mode.reset();
  if (CboModo.ListIndex() > 0)
    formato_.mode = opciones_.modes[static_cast<std::size_t>(CboModo.ListIndex()) - 1];
  station_.Devices().camera.Set(formato_);
}

void FormCamara::Escrito(std::size_t index) {
  const CameraControl& control = opciones_.controls[index];
  const std::optional<int> value = ValorDe(control, TxtControl[index].Text());
  if (!value) return;
  formato_.controls[control.id] = *value;
  station_.Devices().camera.Set(formato_);
}

void FormCamara::Mover(std::size_t index, int pasos) {
  const CameraControl& control = opciones_.controls[index];
  const auto written = formato_.controls.find(control.id);
  const std::int64_t before = written == formato_.controls.end() ? control.value : written->second;
  const std::int64_t after = before + std::int64_t{pasos} * PasoDe(control);
  TxtControl[index].SetText(
      TextoDe(static_cast<int>(std::clamp<std::int64_t>(after, control.least, control.most))));
  TxtControl[index].SelectAll();
}

bool FormCamara::Form_KeyDown(int KeyCode, int /*Shift*/) {
  if (KeyCode == keys::kEscape) {
    station_.OpenForms.Unload(*this);
    return true;
  }
  if (KeyCode == keys::kEnter && Focus() != &CmdCancelar) {
    Guardar();
    return true;
  }
  const auto text = std::find_if(TxtControl.begin(), TxtControl.end(),
                                 [this](const TextBox& each) { return &each == Focus(); });
  if (text == TxtControl.end() || (KeyCode != keys::kUp && KeyCode != keys::kDown)) return false;
  Mover(static_cast<std::size_t>(text - TxtControl.begin()), KeyCode == keys::kUp ? 1 : -1);
  return true;
}

void FormCamara::Guardar() {
  guardado_ = true;
  if (formato_ != camara_.format) GuardarFormato(station_.Devices().disk, camara_.name, formato_).PassOver();
  station_.OpenForms.Unload(*this);
}

CameraFormat FormCamara::FormatoDeAntes() const {
  CameraFormat before = camara_.format;
  for (const CameraControl& control : opciones_.controls) {
    if (formato_.controls.contains(control.id)) before.controls[control.id] = control.value;
  }
  return before;
}

void FormCamara::Form_Unload() {
  if (!guardado_ && formato_ != camara_.format) station_.Devices().camera.Set(FormatoDeAntes());
}

}  // namespace vintoral
