#include "driver/Mailing.h"

#include <atomic>
#include <memory>
#include <stdexcept>

#include "driver/Operation.h"
#include "platform/NativePath.h"
#include "platform/PosixDisk.h"
#include "platform/mail/Smtp.h"

namespace vintoral {
namespace {

/// The station waits for it here: whoever drives it has the result with the reply.
bool Deliver(const MailMessage& message, const PosixDisk& disk) {
  const auto find = [&disk](std::string_view path) {
    return disk.Exists(path) ? FindIgnoringCase(disk.PathOf(path)) : std::string();
  };
  const std::atomic<bool> over = false;
  const std::string problem = SendBySmtp(JobNow(message, find), over);
  if (!problem.empty()) ReportLostMail(problem);
  return problem.empty();
}

std::function<bool(const MailMessage&)> DelivererNamed(const std::string& name, const std::string& folder) {
  if (name == "ok") return [](const MailMessage&) { return true; };
  if (name == "fail") return [](const MailMessage&) { return false; };
  if (name != "smtp") throw std::runtime_error("no mail is '" + name + "': ok, fail, smtp");
  const auto disk = std::make_shared<const PosixDisk>(folder);
  return [disk](const MailMessage& message) { return Deliver(message, *disk); };
}

}  // namespace

void Mailing::ApplyTo(RecordingMail& mail) const {
  if (online) mail.Online = *online;
  if (deliver) mail.Deliver = deliver;
}

Mailing MailingOf(const Json& operation, const std::string& folder) {
  Mailing mailing;
  if (Has(operation, "mail")) mailing.deliver = DelivererNamed(Field<std::string>(operation, "mail"), folder);
  if (Has(operation, "online")) mailing.online = Field<bool>(operation, "online");
  return mailing;
}

}  // namespace vintoral
