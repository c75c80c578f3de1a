// The texts of a mail's headers (RFC 5322, RFC 2047).
#pragma once

#include <ctime>
#include <string>
#include <string_view>

namespace vintoral {

/// With a blank in place of everything that could end a line.
std::string OneLine(std::string_view text);
/// "Subject: text" of any UTF-8 text: as it stands where a mail may hold it so, else in encoded words on as
/// many lines as it takes.
std::string HeaderLine(std::string_view name, std::string_view text);
/// "Fri, 20 Nov 2026 14:25:03 +0000", whatever language the machine speaks.
std::string MailDate(std::time_t time);

}  // namespace vintoral
