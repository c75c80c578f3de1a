#include "platform/mail/Smtp.h"

#include <chrono>
#include <cstdio>
#include <random>

#include "platform/mail/MailText.h"
#include "platform/modules/Module.h"

namespace vintoral {

std::string SendBySmtp(const MailJob& job, const std::atomic<bool>& over) {
  static const ModuleFunction module = FindInModule("vintoral-smtp.so", "SendByCurl");
  if (module.address == nullptr) return module.problem;
  using Send = void(const MailJob&, const std::atomic<bool>&, std::string&);
  std::string problem;
  reinterpret_cast<Send*>(module.address)(job, over, problem);
  return problem;
}

MailJob JobNow(const MailMessage& message, const FindMailFile& find) {
  std::random_device chance;
  const std::uint64_t token = std::uint64_t{chance()} << 32 | chance();
  return JobOf(message, find, std::chrono::system_clock::to_time_t(std::chrono::system_clock::now()), token);
}

void ReportLostMail(const std::string& problem) {
  std::fprintf(stderr, "mail: an alert is lost: %s\n", OneLine(problem).c_str());
}

}  // namespace vintoral
