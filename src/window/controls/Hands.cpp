#include "window/controls/Hands.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>

#include "window/controls/KeyMap.h"
#include "window/controls/Text.h"

namespace vintoral {

Hands::Hands(Forms& forms, std::function<void()> afterwards)
    : forms_(forms), input_(forms), afterwards_(std::move(afterwards)) {}

template <class Action>
void Hands::Do(Action action) {
  if (forms_.Ended()) return;
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
      if (!ClipboardKey(character)) input_.Character(character);
    }
  });
}

bool Hands::ClipboardKey(char character) {
  constexpr char kControlC = 3, kControlV = 22, kControlX = 24;
  QClipboard& clipboard = *QGuiApplication::clipboard();
  if (character == kControlV) return input_.PasteKey(FromQString(clipboard.text()));
  if (character != kControlC && character != kControlX) return false;
  const std::optional<String> copied = input_.CopyKey(character == kControlX);
  if (copied && !copied->Empty()) clipboard.setText(ToQString(*copied));
  return copied.has_value();
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

void Hands::MoveCaret(Control& control, int start, int length) {
  Do([&] { input_.MoveCaret(control, static_cast<std::size_t>(start), static_cast<std::size_t>(length)); });
}

void Hands::Leave(Form& form) {
  Do([&] { input_.Leave(form); });
}

void Hands::CloseBox(Form& form) {
  Do([&] { input_.CloseBox(form); });
}

}  // namespace vintoral
