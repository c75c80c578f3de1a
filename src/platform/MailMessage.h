// What a relay needs to know of one mail.
#pragma once

#include <vector>

#include "common/String.h"

namespace vintoral {

/// How the connection to the relay is kept private.
enum class MailPrivacy {
  kNone,
  kStartTls,  ///< begun in clear; without TLS on offer nothing is sent
  kTls,       ///< from the first byte
};

struct MailMessage {
  String server;
  int port = 0;
  String user, password;  ///< for the log-in
  bool logIn = false;
  MailPrivacy privacy = MailPrivacy::kNone;
  String from;
  std::vector<String> to;  ///< addresses, none of them empty
  String subject;
  String text;        ///< lines end in CR LF
  String attachment;  ///< a station path, empty for none

  friend bool operator==(const MailMessage&, const MailMessage&) = default;
};

}  // namespace vintoral
