#include "window/controls/KeyMap.h"

#include <QKeyEvent>
#include <array>

#include "station/forms/Input.h"
#include "window/controls/Text.h"

namespace vintoral {

namespace {

struct Pair {
  int qt;
  int code;
};

// The keys whose two codes differ. A punctuation mark's code in the toolkit is its character, and must not
// pass for the virtual key of that number: "." is 46, and so is Delete.
constexpr std::array kNamed = {
    Pair{Qt::Key_Backspace, keys::kBackspace},
    Pair{Qt::Key_Tab, keys::kTab},
    Pair{Qt::Key_Backtab, keys::kTab},
    Pair{Qt::Key_Return, keys::kEnter},
    Pair{Qt::Key_Enter, keys::kEnter},
    Pair{Qt::Key_Escape, keys::kEscape},
    Pair{Qt::Key_Space, keys::kSpace},
    Pair{Qt::Key_PageUp, keys::kPageUp},
    Pair{Qt::Key_PageDown, keys::kPageDown},
    Pair{Qt::Key_End, keys::kEnd},
    Pair{Qt::Key_Home, keys::kHome},
    Pair{Qt::Key_Left, keys::kLeft},
    Pair{Qt::Key_Up, keys::kUp},
    Pair{Qt::Key_Right, keys::kRight},
    Pair{Qt::Key_Down, keys::kDown},
    Pair{Qt::Key_Insert, keys::kInsert},
    Pair{Qt::Key_Delete, keys::kDelete},
};

constexpr std::array kKeypadMarks = {
    Pair{Qt::Key_Asterisk, 106}, Pair{Qt::Key_Plus, 107},  Pair{Qt::Key_Minus, 109},
    Pair{Qt::Key_Period, 110},   Pair{Qt::Key_Comma, 110}, Pair{Qt::Key_Slash, 111},
};

template <std::size_t N>
int CodeIn(const std::array<Pair, N>& pairs, int qt) {
  for (const Pair& pair : pairs) {
    if (pair.qt == qt) return pair.code;
  }
  return 0;
}

int CodeOf(int key, bool keypad) {
  if (key >= Qt::Key_0 && key <= Qt::Key_9) return keypad ? keys::kNumpad0 + key - Qt::Key_0 : key;
  if (keypad) {
    if (const int mark = CodeIn(kKeypadMarks, key); mark != 0) return mark;
  }
  if (key >= Qt::Key_A && key <= Qt::Key_Z) return key;
  if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return keys::kF1 + key - Qt::Key_F1;
  return CodeIn(kNamed, key);
}

int MaskOf(Qt::KeyboardModifiers modifiers) {
  return (modifiers & Qt::ShiftModifier ? keys::kShift : 0) |
         (modifiers & Qt::ControlModifier ? keys::kControl : 0) |
         (modifiers & Qt::AltModifier ? keys::kAlt : 0);
}

}  // namespace

StationKey StationKeyOf(const QKeyEvent& event) {
  StationKey key{CodeOf(event.key(), event.modifiers() & Qt::KeypadModifier), MaskOf(event.modifiers())};
  if (event.key() == Qt::Key_Backtab) key.mask |= keys::kShift;
  return key;
}

String CharactersOf(const QKeyEvent& event) {
  const StationKey key = StationKeyOf(event);
  if (key.mask & keys::kAlt) return {};
  if (key.mask & keys::kControl) {
    const bool letter = key.code >= 'A' && key.code <= 'Z';
    return letter ? String(1, static_cast<char>(key.code - 'A' + 1)) : String();
  }
  if (key.code == keys::kEnter || key.code == keys::kBackspace || key.code == keys::kEscape)
    return String(1, static_cast<char>(key.code));
  const QString text = event.text();
  const bool printable = !text.isEmpty() && text.at(0).unicode() >= 0x20 && text.at(0).unicode() != 0x7F;
  return printable ? FromQString(text) : String();
}

}  // namespace vintoral
