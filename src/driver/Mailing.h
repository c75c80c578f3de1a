// What becomes of a driven station's mail.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include <nlohmann/json.hpp>

#include "platform/headless/RecordingMail.h"

namespace vintoral {

using Json = nlohmann::ordered_json;

/// As far as an operation says it.
struct Mailing {
  std::optional<bool> online;
  std::function<bool(const MailMessage&)> deliver;

  void ApplyTo(RecordingMail& mail) const;
};

/// The fields `online` and `mail` of an operation; throws where they say nothing that there is. `folder` is
/// the station's, for what the real transport reads there.
Mailing MailingOf(const Json& operation, const std::string& folder);

}  // namespace vintoral
