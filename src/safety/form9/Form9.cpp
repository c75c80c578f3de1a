#include "safety/form9/Form9.h"

#include "common/Numbers.h"
#include "station/form1/Form1.h"
#include "station/forms/Keys.h"

namespace vintoral {
namespace {

/// What the pieces of a value hold; more could not be kept.
constexpr std::size_t kLargo = kRegistrosPorValor * 2 * RegistroMixto::kPieza;

String NombreDe(std::size_t index) {
  if (index == Form9::kAsunto) return "Asunto "_w;
  if (index == Form9::kMensaje) return "Mensaje "_w;
  return "E-MAIL #"_w + Digits(static_cast<std::int64_t>(index - Form9::kPrimerCorreo) + 1) + " "_w;
}

}  // namespace

Form9::Form9(Form1& station) : Form("Form9"), station_(station) {
  station_.Form9 = this;
  Nombrar();
  Mostrar();
  Conectar();
  SetFocus(&TxtCall[kAsunto]);
}

void Form9::Nombrar() {
  Add(LblCall, "LblCall");
  Add(TxtCall, "TxtCall");
  Add(CmdPanico, "CmdPanico");
}

void Form9::Mostrar() {
  for (std::size_t i = 0; i < TxtCall.size(); ++i) {
    LblCall[i].Caption = NombreDe(i);
    TxtCall[i].MaxLength = kLargo;
    TxtCall[i].SetText(Trim(station_.DatosCall[i]));
  }
  CmdPanico.Caption = "ACTIVAR ALERTA"_w;
}

void Form9::Conectar() {
  for (std::size_t i = 0; i < TxtCall.size(); ++i) {
    TextBox& next = TxtCall[(i + 1) % TxtCall.size()];
    TxtCall[i].OnEnter = [this, &next] {
      SetFocus(&next);
      next.SelectAll();
    };
    // What is marked is what typing would replace, and that is only where the keyboard is.
    TxtCall[i].OnLostFocus = [&text = TxtCall[i]] { text.Select(0, 0); };
  }
  CmdPanico.OnClick = [this] {
    station_.GuardarDatosCall();
    station_.OpenForms.Unload(*this);
  };
}

bool Form9::Form_KeyDown(int KeyCode, int /*Shift*/) {
  if (KeyCode != keys::kEscape) return false;
  station_.OpenForms.Unload(*this);
  return true;
}

void Form9::Form_Unload() {
  station_.Form9 = nullptr;
}

}  // namespace vintoral
