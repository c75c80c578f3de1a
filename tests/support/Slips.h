// What came out of the printers.
#pragma once

#include <string>
#include <vector>

#include "platform/headless/Recording.h"

namespace vintoral::test {

/// The documents among what the devices did.
inline std::vector<DeviceEvent> Printed(Recording& recording) {
  std::vector<DeviceEvent> printed;
  for (const DeviceEvent& event : recording.Take()) {
    if (event.kind == DeviceEvent::Kind::kPrint) printed.push_back(event);
  }
  return printed;
}

/// Its texts, each with a line feed behind it, as on the paper.
inline std::string TextOf(const DeviceEvent& printed) {
  std::string text;
  for (const PrintOperation& operation : printed.printed) {
    if (operation.kind == PrintOperation::Kind::kText)
      text += ReplaceAll(operation.text, "\r\n", "\n").Bytes() + "\n";
  }
  return text;
}

}  // namespace vintoral::test
