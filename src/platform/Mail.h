// Mail: one message, one attempt, beside the station.
#pragma once

#include <memory>
#include <optional>
#include <string_view>

namespace vintoral {

struct MailMessage;

/// A mail on its way. Destroyed before its result is there, it goes on by itself or is given up; nobody waits
/// for it.
class Sending {
 public:
  virtual ~Sending() = default;
  /// Nothing while it is under way; then whether the relay has taken the mail for every recipient.
  virtual std::optional<bool> Result() = 0;
};

class Mail {
 public:
  virtual ~Mail() = default;
  /// A network other than the machine's own is up, or the relay is on this machine. Returns at once.
  virtual bool Connected(std::string_view relay) = 0;
  /// Begins to send, and returns at once. What fails leaves one line on standard error, without the password.
  virtual std::unique_ptr<Sending> Send(const MailMessage& message) = 0;
};

}  // namespace vintoral
