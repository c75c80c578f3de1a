// The whole command set of the main screen, as two tables: what a key does and what a button does.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace vintoral {

class Form1;

/// Which masks (1 shift, 2 control, 4 alt, added) a row answers to: bit m stands for mask m.
using MaskSet = std::uint8_t;
inline constexpr MaskSet kAnyMask = 0xFF;
constexpr MaskSet OneMask(int mask) {
  return static_cast<MaskSet>(1 << mask);
}

struct KeyCommand {
  int code;
  int lastCode;  ///< the row answers to all codes from `code` to this one
  MaskSet masks;
  bool (*condition)(const Form1&, int code);  ///< null: always
  const char* log;                            ///< code of the function log, null for none
  int lock;                                   ///< position in the lock text, 0 for none
  void (*action)(Form1&, int code);           ///< null: the key matches here and nothing happens
};

enum class Answering { kSilent, kClick, kVoice };

struct ButtonCommand {
  const char* tooltip;         ///< UTF-8
  const char* tooltipPressed;  ///< the same where pressing doesn't change it
  Answering answering;         ///< what is heard before the action
  const char* log;
  int lock;
  int lockToSwitchOff;     ///< a second position, asked when the pressed button is to be released; 0 for none
  void (*action)(Form1&);  ///< null: nothing happens
};

/// From top to bottom; the first row that matches is carried out.
std::span<const KeyCommand> KeyCommands();
/// By index, 0 to 14.
std::span<const ButtonCommand> ButtonCommands();
/// The row that answers to a key in the present state, or null.
const KeyCommand* FindKeyCommand(const Form1& form, int code, int mask);

}  // namespace vintoral
