#include "station/form1/Form1.h"

namespace vintoral {

void Form1::MidiWav(std::string_view file) {
  const String name = Lower(file);
  if (!ContainsNoCase(name, ".wav") && !ContainsNoCase(name, ".mid")) return;
  platform_.sound.Play(file, platform_.disk.Exists(file));
}

}  // namespace vintoral
