// Any bytes as a text file of one line that holds a path.
#include "common/TextoUtf8.h"
#include "platform/NativePath.h"
#include "records/LineaTexto.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  using namespace vintoral;
  const std::string_view file(reinterpret_cast<const char*>(data), size);
  const String line = PrimeraLinea(file);
  if (PrimeraLinea(ConFinDeLinea(line)) != line) __builtin_trap();
  const String text = UTF8toANSI(line);
  if (text.Size() > line.Size()) __builtin_trap();
  const std::string path = NativePath(Trim(text));
  const bool doubled = path.find("//") != std::string::npos || path.find('\\') != std::string::npos;
  if (doubled || !IsUtf8(path) || path.find('\0') != std::string::npos) __builtin_trap();
  if (NativePath(String::FromUtf8(path)) != path) __builtin_trap();
  return 0;
}
