// Mail by the relay of the site, each on a thread of its own.
#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "platform/Mail.h"
#include "platform/mail/Smtp.h"

namespace vintoral {

class DesktopMail final : public Mail {
 public:
  using Transport = std::function<std::string(const MailJob& job, const std::atomic<bool>& over)>;
  struct Patience {
    /// A mail without a result counts as lost then, whatever its thread still waits for.
    std::chrono::milliseconds result{35'000};
    /// What the end of the program grants to a mail that is under way: the time of a connection, the last
    /// second of it for being broken off.
    std::chrono::milliseconds end{9'000}, brokenOff{1'000};
  };

  DesktopMail(FindMailFile find, Transport transport, Patience patience);
  explicit DesktopMail(FindMailFile find) : DesktopMail(std::move(find), SendBySmtp, Patience()) {}
  DesktopMail(const DesktopMail&) = delete;
  DesktopMail& operator=(const DesktopMail&) = delete;
  ~DesktopMail() override;

  bool Connected(std::string_view relay) override;
  std::unique_ptr<Sending> Send(const MailMessage& message) override;

 private:
  class Threads;
  const FindMailFile find_;
  const Patience patience_;
  std::shared_ptr<Threads> threads_;
};

}  // namespace vintoral
