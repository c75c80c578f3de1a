#include "window/controls/Hands.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>

#include "station/forms/Input.h"
#include "window/controls/KeyMap.h"
#include "window/controls/Text.h"

namespace vintoral {

namespace {

/// Control with C, X or V, where the rules of the focused text let it through.
bool ClipboardKey(Input& input, char character) {
  constexpr char kControlC = 3, kControlV = 22, kControlX = 24;
  QClipboard& clipboard = *QGuiApplication::clipboard();
  if (character == kControlV) return input.PasteKey(FromQString(clipboard.text()));
  if (character != kControlC && character != kControlX) return false;
  const std::optional<String> copied = input.CopyKey(character == kControlX);
  if (copied && !copied->Empty()) clipboard.setText(ToQString(*copied));
  return copied.has_value();
}

}  // namespace

Hands::Hands(Forms& forms, std::function<void()> afterwards)
    : forms_(forms), afterwards_(std::move(afterwards)) {}

template <class Action>
void Hands::Do(Action action) {
  if (forms_.Ended()) return;
  Input input(forms_);
  action(input);
  afterwards_();
}

template <class Action>
void Hands::DoWith(const ControlId& id, Action action) {
  DoWith(id.form, [&](Input& input, const Form& form) {
    if (Control* const control = form.Find(id.control)) action(input, *control);
  });
}

template <class Action>
void Hands::DoWith(const std::string& form, Action action) {
  Do([&](Input& input) {
    if (Form* const found = forms_.Find(form)) action(input, *found);
  });
}

void Hands::Key(const QKeyEvent& event) {
  const StationKey key = StationKeyOf(event);
  const String characters = CharactersOf(event);
  if (key.code == 0 && characters.Empty()) return;
  Do([&](Input& input) {
    if (key.code != 0 && input.KeyDown(key.code, key.mask)) return;
    const Form* const form = &forms_.Active();
    const Control* const focus = form->Focus();
    if (key.code != 0) input.ControlKey(key.code, key.mask);
    // What the key has done in one control must not type into the next.
    if (forms_.Ended() || &forms_.Active() != form || form->Focus() != focus) return;
    for (const char character : characters.Bytes()) {
      if (!ClipboardKey(input, character)) input.Character(character);
    }
  });
}

void Hands::Type(const QString& text) {
  const String characters = FromQString(text);
  Do([&](Input& input) {
    for (const char character : characters.Bytes())
      input.Character(character);
  });
}

void Hands::Paste(const QString& text) {
  Do([&](Input& input) { input.Paste(FromQString(text)); });
}

void Hands::Focus(const ControlId& id) {
  DoWith(id, [](Input& input, Control& control) { input.Focus(control); });
}

void Hands::Click(const ControlId& id) {
  DoWith(id, [](Input& input, Control& control) { input.Click(control); });
}

void Hands::DoubleClick(const ControlId& id) {
  DoWith(id, [](Input& input, Control& control) { input.DoubleClick(control); });
}

void Hands::Hover(const ControlId& id) {
  DoWith(id, [](Input& input, Control& control) { input.Hover(control); });
}

void Hands::Select(const ControlId& id, int index) {
  DoWith(id, [&](Input& input, Control& control) {
    static_cast<void>(input.Select(control, index));  // no such row: nothing was chosen
  });
}

void Hands::Tick(const ControlId& id, int row) {
  DoWith(id, [&](Input& input, Control& control) {
    const auto* const list = dynamic_cast<const ListBox*>(&control);
    const auto at = static_cast<std::size_t>(row);
    if (list == nullptr || at >= list->Checked.size()) return;
    static_cast<void>(input.Tick(control, row, list->Checked[at] ? 0 : 1));
  });
}

void Hands::Scroll(const ControlId& id, int top) {
  DoWith(id, [&](Input& input, Control& control) { static_cast<void>(input.Scroll(control, top)); });
}

void Hands::MoveCaret(const ControlId& id, int start, int length) {
  DoWith(id, [&](Input& input, Control& control) {
    input.MoveCaret(control, static_cast<std::size_t>(start), static_cast<std::size_t>(length));
  });
}

void Hands::Leave(const std::string& form) {
  DoWith(form, [](Input& input, Form& found) { input.Leave(found); });
}

void Hands::Use(const std::string& form) {
  Form* const found = forms_.Ended() ? nullptr : forms_.Find(form);
  if (found == nullptr || &forms_.Active() == found) return;
  forms_.Activate(*found);
  afterwards_();
}

void Hands::CloseBox(const std::string& form) {
  DoWith(form, [](Input& input, Form& found) { input.CloseBox(found); });
}

}  // namespace vintoral
