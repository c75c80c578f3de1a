// What brings a mail to its relay. It needs libraries that take longer to load than the station to start, so
// it lies in a module of its own, which is loaded with the first mail.
#pragma once

#include <atomic>
#include <string>

#include "platform/MailMessage.h"
#include "platform/mail/MailJob.h"

namespace vintoral {

/// One attempt, on the caller's thread. Done when the relay has taken the mail for every recipient: then the
/// problem that it returns is empty. Where some are refused the others get it all the same. It lasts half a
/// minute at most, and ends within about a second when `over` is set.
std::string SendBySmtp(const MailJob& job, const std::atomic<bool>& over);

/// The job of a message as of now.
MailJob JobNow(const MailMessage& message, const FindMailFile& find);

/// Tells standard error that a mail did not go out.
void ReportLostMail(const std::string& problem);

}  // namespace vintoral
