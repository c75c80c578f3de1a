#include "window/controls/Hands.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <utility>

#include "station/forms/Input.h"
#include "window/controls/InputQueue.h"
#include "window/controls/KeyMap.h"
#include "window/controls/OwnKeys.h"
#include "window/controls/Text.h"

namespace vintoral {

namespace {

constexpr char kControlC = 3, kControlV = 22, kControlX = 24;

bool IsOwnKey(QObject* widget, const QKeyEvent& event) {
  auto* const own = dynamic_cast<OwnKeys*>(widget);
  return own != nullptr && own->TakeKey(event);
}

QString ClipboardText() {
  return QGuiApplication::clipboard()->text();
}

/// Control with C, X or V, where the rules of the focused text let it through.
bool ClipboardKey(Input& input, Seam& seam, char character, const String& clipboard) {
  if (character == kControlV) return input.PasteKey(clipboard);
  if (character != kControlC && character != kControlX) return false;
  const std::optional<String> copied = input.CopyKey(character == kControlX);
  if (copied && !copied->Empty())
    seam.ToWindow([text = ToQString(*copied)] { QGuiApplication::clipboard()->setText(text); });
  return copied.has_value();
}

}  // namespace

// The clipboard is the station's only as a copy.
void Hands::Key(const QKeyEvent& event) {
  const bool pastes = CharactersOf(event) == String(1, kControlV);
  std::optional<QString> now;
  if (pastes && !queue_.KeepsCopy()) now = ClipboardText();
  queue_.Press(event, [this, pastes, now](const QKeyEvent& key) {
    if (HasKeyboard && IsOwnKey(HasKeyboard(), key)) return;
    Serve(key, now ? *now : pastes ? ClipboardText() : QString());
  });
}

void Hands::Serve(const QKeyEvent& event, const QString& clipboard) {
  const StationKey key = StationKeyOf(event);
  const String characters = CharactersOf(event);
  if (key.code == 0 && characters.Empty()) return;
  queue_.Serve(With([this, key, characters, pasted = FromQString(clipboard)](Input& input) {
    if (key.code != 0 && input.KeyDown(key.code, key.mask)) return;
    const Form* const form = &forms_.Active();
    const Control* const focus = form->Focus();
    if (key.code != 0) input.ControlKey(key.code, key.mask);
    // What the key has done in one control must not type into the next.
    if (forms_.Ended() || &forms_.Active() != form || form->Focus() != focus) return;
    for (const char character : characters.Bytes()) {
      if (!ClipboardKey(input, seam_, character, pasted)) input.Character(character);
    }
  }));
}

Seam::Step Hands::With(std::function<void(Input&)> action) {
  return [&forms = forms_, action = std::move(action)] {
    if (forms.Ended()) return;
    Input input(forms);
    action(input);
  };
}

Seam::Step Hands::With(const std::string& form, std::function<void(Input&, Form&)> action) {
  return With([&forms = forms_, form, action = std::move(action)](Input& input) {
    if (Form* const found = forms.Find(form)) action(input, *found);
  });
}

Seam::Step Hands::With(const ControlId& id, std::function<void(Input&, Control&)> action) {
  return With(id.form, [name = id.control, action = std::move(action)](Input& input, const Form& form) {
    if (Control* const control = form.Find(name)) action(input, *control);
  });
}

/// A turn of its own, behind the showing of what came of the step.
Seam::Step Hands::Then(Seam::Step step, std::function<void()> then) {
  if (!then) return step;
  return [&seam = seam_, step = std::move(step), then = std::move(then)] {
    step();
    seam.Tell([&seam, then] { seam.ToWindow(then); });
  };
}

void Hands::Type(const QString& text) {
  Key(QKeyEvent(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, text));
}

void Hands::Paste(const QString& text) {
  queue_.Do(With([pasted = FromQString(text)](Input& input) { input.Paste(pasted); }));
}

void Hands::Focus(const ControlId& id, std::function<void()> then) {
  queue_.Do(Then(With(id, [](Input& input, Control& control) { input.Focus(control); }), std::move(then)));
}

void Hands::Click(const ControlId& id) {
  queue_.Do(With(id, [](Input& input, Control& control) { input.Click(control); }));
}

void Hands::DoubleClick(const ControlId& id) {
  queue_.Do(With(id, [](Input& input, Control& control) { input.DoubleClick(control); }));
}

void Hands::Hover(const ControlId& id) {
  queue_.Do(With(id, [](Input& input, Control& control) { input.Hover(control); }),
            InputQueue::Kind::kPointer);
}

void Hands::Select(const ControlId& id, int index) {
  queue_.Do(With(id, [index](Input& input, Control& control) {
    static_cast<void>(input.Select(control, index));  // no such row: nothing was chosen
  }));
}

void Hands::Tick(const ControlId& id, int row) {
  queue_.Do(With(id, [row](Input& input, Control& control) {
    const auto* const list = dynamic_cast<const ListBox*>(&control);
    const auto at = static_cast<std::size_t>(row);
    if (list == nullptr || at >= list->Checked.size()) return;
    static_cast<void>(input.Tick(control, row, list->Checked[at] ? 0 : 1));
  }));
}

void Hands::Scroll(const ControlId& id, int top) {
  queue_.Do(
      With(id, [top](Input& input, Control& control) { static_cast<void>(input.Scroll(control, top)); }),
      InputQueue::Kind::kView);
}

void Hands::MoveCaret(const ControlId& id, int start, int length) {
  queue_.Do(With(id, [start, length](Input& input, Control& control) {
    input.MoveCaret(control, static_cast<std::size_t>(start), static_cast<std::size_t>(length));
  }));
}

void Hands::Leave(const std::string& form) {
  queue_.Do(With(form, [](Input& input, Form& found) { input.Leave(found); }), InputQueue::Kind::kPointer);
}

void Hands::Use(const std::string& form) {
  queue_.Do(With(form,
                 [&forms = forms_](Input&, Form& found) {
                   if (&forms.Active() != &found) forms.Activate(found);
                 }),
            InputQueue::Kind::kView);
}

void Hands::CloseBox(const std::string& form) {
  if (SeesToClosing && SeesToClosing()) return;
  queue_.Do(With(form, [](Input& input, Form& found) { input.CloseBox(found); }));
}

void Hands::CloseMain(const std::string& form) {
  if (SeesToClosing && SeesToClosing()) return;
  queue_.Do(With(form, [](Input& input, Form& found) { input.CloseBox(found); }), InputQueue::Kind::kClosing);
}

}  // namespace vintoral
