// One mail as a relay takes it: UTF-8, headers written out, files by the paths of this system.
#pragma once

#include <ctime>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/MailMessage.h"

namespace vintoral {

struct MailJob {
  std::string host;
  int port = 0;
  bool logIn = false;
  std::string user, password;
  MailPrivacy privacy = MailPrivacy::kNone;
  std::string authorities;  ///< a file of certificates that are believed beside the system's, or empty
  // Addresses hold no blank, no bracket and nothing that ends a line.
  std::string from;
  std::vector<std::string> to;
  std::vector<std::string> headers;  ///< without the ends of the lines, but for those inside a folded one
  std::string text;
  std::string attachment;      ///< its file, or empty
  std::string attachmentName;  ///< as the mail calls it
};

/// The file of this system that a station path means, empty where there is none.
using FindMailFile = std::function<std::string(std::string_view path)>;

/// `now` is its date and, with the number `token`, what tells it from every other one.
MailJob JobOf(const MailMessage& message, const FindMailFile& find, std::time_t now, std::uint64_t token);

}  // namespace vintoral
