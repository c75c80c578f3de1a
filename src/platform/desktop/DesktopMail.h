// Mail by the relay of the site.
#pragma once

#include "platform/Mail.h"

namespace vintoral {

class DesktopMail final : public Mail {
 public:
  bool Connected(std::string_view relay) override;
  std::unique_ptr<Sending> Send(const MailMessage& message) override;
};

}  // namespace vintoral
