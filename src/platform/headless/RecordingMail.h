// A relay that is given: each mail is taken, or refused, at once.
#pragma once

#include <functional>

#include "platform/MailMessage.h"
#include "platform/headless/Recording.h"

namespace vintoral {

class RecordingMail final : public Mail {
 public:
  explicit RecordingMail(Recording& recording) : recording_(recording) {}

  bool Online = true;
  /// What becomes of a mail.
  std::function<bool(const MailMessage&)> Deliver = [](const MailMessage&) { return true; };

  bool Connected(std::string_view /*relay*/) override { return Online; }
  std::unique_ptr<Sending> Send(const MailMessage& message) override {
    DeviceEvent event{DeviceEvent::Kind::kMail, message.server};
    event.sent = Deliver(message);
    event.mail = message;
    event.mail.password = {};
    const bool sent = event.sent;
    recording_.Add(std::move(event));
    return std::make_unique<Sent>(sent);
  }

 private:
  class Sent final : public Sending {
   public:
    explicit Sent(bool sent) : sent_(sent) {}
    std::optional<bool> Result() override { return sent_; }

   private:
    bool sent_;
  };

  Recording& recording_;
};

}  // namespace vintoral
