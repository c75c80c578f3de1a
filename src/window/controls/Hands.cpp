#include "window/controls/Hands.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>

#include "station/form1/ReglasTeclas.h"
#include "window/controls/KeyMap.h"
#include "window/controls/Text.h"

namespace vintoral {

Hands::Hands(Form1& form, std::function<void()> afterwards)
    : form_(form), input_(form), afterwards_(std::move(afterwards)) {}

template <class Action>
void Hands::Do(Action action) {
  if (form_.Terminado()) return;
  action();
  afterwards_();
}

void Hands::Key(const QKeyEvent& event) {
  const StationKey key = StationKeyOf(event);
  const String characters = CharactersOf(event);
  if (key.code == 0 && characters.Empty()) return;
  Do([&] {
    if (key.code != 0 && input_.KeyDown(key.code, key.mask)) return;
    if (key.code != 0) input_.ControlKey(key.code, key.mask);
    for (const char character : characters.Bytes()) {
      if (!PasteKey(character)) input_.Character(character);
    }
  });
}

bool Hands::PasteKey(char character) {
  constexpr char kControlV = 22;
  const auto* const box = dynamic_cast<TextBox*>(form_.Focus());
  if (character != kControlV || box == nullptr) return false;
  if (KeyRule(form_, *box, character) != KeyVerdict::kPass) return false;
  input_.Paste(FromQString(QGuiApplication::clipboard()->text()));
  return true;
}

void Hands::Type(const QString& text) {
  const String characters = FromQString(text);
  Do([&] {
    for (const char character : characters.Bytes())
      input_.Character(character);
  });
}

void Hands::Paste(const QString& text) {
  Do([&] { input_.Paste(FromQString(text)); });
}

void Hands::Focus(Control& control) {
  Do([&] { input_.Focus(control); });
}

void Hands::Click(Control& control) {
  Do([&] { input_.Click(control); });
}

void Hands::DoubleClick(Control& control) {
  Do([&] { input_.DoubleClick(control); });
}

void Hands::Hover(Control& control) {
  Do([&] { input_.Hover(control); });
}

void Hands::Select(Control& control, int index) {
  Do([&] { static_cast<void>(input_.Select(control, index)); });  // no such row: nothing was chosen
}

void Hands::MoveCaret(TextBox& box, int start, int length) {
  Do([&] { input_.MoveCaret(box, static_cast<std::size_t>(start), static_cast<std::size_t>(length)); });
}

}  // namespace vintoral
