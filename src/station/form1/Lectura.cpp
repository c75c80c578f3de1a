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

}  // namespace

bool Lectura::Recibir(char character) {
  if (!IsOfCodes(character)) {
    rafaga_.Clear();
    return false;
  }
  form_.QuitarCelda();  // under a pointer that rests on a cell a code would count as one that was found
  if (!TakesText(form_.Focus())) form_.SetFocus(&form_.TxtBarCode);
  const std::int64_t now = form_.Devices().clock.Ticks();
  if (!rafaga_.Continues(now) || campo_ != form_.Focus()) Empezar();
  rafaga_.Add(character, now);
  if (campo_ == &form_.TxtBarCode || !Completa()) return false;
  const String codigo(rafaga_.Text());
  Devolver();
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
  if (campo_ == &form_.TxtBarCode && antes_.Size() >= kLargoCodigo) form_.TxtBarCode.SetText({});
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
  if (auto* const box = dynamic_cast<TextBox*>(campo_)) box->SetText(antes_);
}

void Lectura::Leida() {
  leida_ = form_.Devices().clock.Ticks();
}

bool Lectura::TerminaEnEnter() const {
  return leida_ && form_.Devices().clock.Ticks() - *leida_ < KeyBurst::kGap;
}

}  // namespace vintoral
