#include "platform/desktop/DesktopMail.h"

namespace vintoral {
namespace {

/// A station that has no way to a relay yet.
class Unsent final : public Sending {
 public:
  std::optional<bool> Result() override { return false; }
};

}  // namespace

bool DesktopMail::Connected(std::string_view /*relay*/) {
  return false;
}

std::unique_ptr<Sending> DesktopMail::Send(const MailMessage& /*message*/) {
  return std::make_unique<Unsent>();
}

}  // namespace vintoral
