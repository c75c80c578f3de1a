#include "window/controls/Text.h"

namespace vintoral {

QString ToQString(std::string_view text) {
  return QString::fromStdString(String(text).ToUtf8());
}

String FromQString(const QString& text) {
  return String::FromUtf8(text.toStdString());
}

}  // namespace vintoral
