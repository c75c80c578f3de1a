// The whole command set of the main screen as tables: what a key does, what a button does, and what else the
// function lock guards.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "common/String.h"
#include "station/form1/Familias.h"
#include "station/forms/Keys.h"

namespace vintoral {

class Form1;
class PictureBox;

/// Which masks a row answers to: bit m stands for mask m.
using MaskSet = std::uint8_t;
inline constexpr MaskSet kAnyMask = 0xFF;
constexpr MaskSet OneMask(int mask) {
  return static_cast<MaskSet>(1 << mask);
}

struct KeyCommand {
  int code;
  int lastCode = code;  ///< the row answers to all codes from `code` to this one
  MaskSet masks = kAnyMask;
  bool (*condition)(const Form1&, int code) = nullptr;  ///< null: always
  const char* log = nullptr;                            ///< code of the function log, null for none
  int lock = 0;                                         ///< position in the lock text, 0 for none
  std::optional<boton::Index> button = {};              ///< the button that the key presses
  void (*action)(Form1&, int code) = nullptr;           ///< null: it presses a button
};

/// The action of a key that is taken and does nothing, for good.
void DoNothing(Form1& form, int code);

enum class Answering { kSilent, kClick, kVoice };

struct ButtonCommand {
  const char* tooltip;                       ///< UTF-8
  const char* tooltipPressed = tooltip;      ///< where pressing changes it
  Answering answering = Answering::kSilent;  ///< what is heard before the action
  const char* log = nullptr;                 ///< as of KeyCommand
  int lock = 0;                              ///< as of KeyCommand
  int lockToSwitchOff = 0;  ///< a second position, asked when the button's release ends barcode mode
  void (*action)(Form1&) = nullptr;
};

/// An operation that the lock guards by whatever way it is reached.
struct GuardedOperation {
  const char* operation;
  int lock;
};

/// From top to bottom; the first row that matches is carried out.
std::span<const KeyCommand> KeyCommands();
/// By boton::Index.
std::span<const ButtonCommand> ButtonCommands();
std::span<const GuardedOperation> GuardedOperations();
/// What the button stands for as it is now, pressed or not.
String ToolTipOf(const PictureBox& button, boton::Index index);
/// The row that answers to a key in the present state, or null.
const KeyCommand* FindKeyCommand(const Form1& form, int code, int mask);

}  // namespace vintoral
