#include "station/form1/Lectura.h"

#include <algorithm>

#include "records/BuscarCodigo.h"
#include "station/form1/Form1.h"

namespace vintoral {
namespace {

bool IsOfCodes(char character) {
  const char upper = UpperByte(character);
  return (upper >= '0' && upper <= '9') || (upper >= 'A' && upper <= 'Z');
}

/// The texts of the idle screen; all else takes no typing.
bool TakesText(const Control* control) {
  return dynamic_cast<const EditableText*>(control) != nullptr;
}

void LlevarAlCodigo(Form1& form) {
  form.QuitarCelda();  // under a pointer that rests on a cell a code would count as one that was found
  if (!TakesText(form.Focus())) form.SetFocus(&form.TxtBarCode);
}

/// While a ficha is under way: the same code read twice, and the next one's before this pass has come in or
/// over the cash. None of them is a name, a plate or cash.
bool SobraLectura(const Form1& form, std::string_view codigo) {
  const bool repetida = EqualNoCase(codigo, TrimBlanks(form.TxtBarCode.Text()));
  return repetida || form.NumeroPase > 0 || form.Focus() == &form.TxtEfectivo;
}

}  // namespace

bool Lectura::Recibir(char character) {
  if (!IsOfCodes(character)) {
    rafaga_.Clear();
    return false;
  }
  if (!form_.FichaEnCurso()) LlevarAlCodigo(form_);
  const std::int64_t now = form_.Devices().clock.Ticks();
  if (!rafaga_.Continues(now) || campo_ != form_.Focus()) Empezar();
  rafaga_.Add(character, now);
  if (!Completa() || (form_.FichaEnCurso() && !SobraLectura(form_, rafaga_.Text()))) return false;
  const String codigo(rafaga_.Text());
  if (campo_ != &form_.TxtBarCode) Devolver();
  if (form_.FichaEnCurso()) {
    Leida();
    return true;
  }
  form_.SetFocus(&form_.TxtBarCode);
  form_.TxtBarCode.SetText(codigo);
  return true;
}

void Lectura::Empezar() {
  rafaga_.Clear();
  campo_ = form_.Focus();
  if (const auto* text = dynamic_cast<const EditableText*>(campo_)) antes_ = text->Text();
  const auto* const list = dynamic_cast<const ComboBox*>(campo_);
  elegido_ = list != nullptr ? list->ListIndex() : -1;
  // A code that nobody knew still stands there: this one takes its place.
  const bool estorba = campo_ == &form_.TxtBarCode && antes_.Size() >= kLargoCodigo;
  if (estorba && !form_.FichaEnCurso()) form_.TxtBarCode.SetText({});
}

bool Lectura::Completa() const {
  return rafaga_.Text().size() == kLargoCodigo;
}

void Lectura::Devolver() const {
  auto* const list = dynamic_cast<ComboBox*>(campo_);
  if (list != nullptr && elegido_ >= 0) {
    list->Select(elegido_);
    return list->ShowInstead(antes_);  // of a monitor: "15 Min. ATRAS"
  }
  if (list != nullptr) return list->SetText(antes_);
  auto* const box = dynamic_cast<TextBox*>(campo_);
  if (box == nullptr) return;
  box->SetText(antes_);
  box->Select(antes_.Size(), 0);
  if (antes_ == "0"_w) box->SelectAll();  // cash that nobody has typed yet
}

void Lectura::Leida() {
  leida_ = form_.Devices().clock.Ticks();
}

bool Lectura::TerminaEnEnter() const {
  return leida_ && form_.Devices().clock.Ticks() - *leida_ < KeyBurst::kGap;
}

}  // namespace vintoral
