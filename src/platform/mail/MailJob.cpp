#include "platform/mail/MailJob.h"

#include <algorithm>
#include <iterator>

#include "platform/mail/MailText.h"

namespace vintoral {
namespace {

/// Of a relay in the house, whose certificate nobody else vouches for.
constexpr std::string_view kAuthorities = "Objetos\\Correo.PEM";

/// What would end the address, or the line that it stands in, is left out: the relay refuses what is left
/// where that is no address.
std::string Address(const String& text) {
  const auto ends = [](char byte) {
    return (byte >= 0 && byte <= ' ') || byte == '<' || byte == '>' || byte == '\x7F';
  };
  std::string address;
  const std::string whole = text.ToUtf8();
  std::remove_copy_if(whole.begin(), whole.end(), std::back_inserter(address), ends);
  return address;
}

std::string Recipients(const std::vector<std::string>& addresses) {
  std::string line = "To: ";
  for (const std::string& address : addresses) {
    if (&address != &addresses.front()) line += ",\r\n ";
    line += "<" + address + ">";
  }
  return line;
}

std::string Identity(const std::string& from, std::time_t now, std::uint64_t token) {
  const std::size_t at = from.rfind('@');
  const std::string domain = at == std::string::npos ? "vintoral" : from.substr(at + 1);
  return "Message-ID: <" + std::to_string(now) + "." + std::to_string(token) + "@" + domain + ">";
}

std::string NameOf(const std::string& path) {
  return path.substr(path.rfind('/') + 1);
}

}  // namespace

MailJob JobOf(const MailMessage& message, const FindMailFile& find, std::time_t now, std::uint64_t token) {
  MailJob job;
  job.host = OneLine(message.server.ToUtf8());
  job.port = message.port;
  job.logIn = message.logIn;
  job.user = message.user.ToUtf8();
  job.password = message.password.ToUtf8();
  job.privacy = message.privacy;
  job.authorities = find(kAuthorities);
  job.from = Address(message.from);
  for (const String& address : message.to)
    job.to.push_back(Address(address));
  job.headers = {"Date: " + MailDate(now), "From: <" + job.from + ">", Recipients(job.to),
                 HeaderLine("Subject", message.subject.ToUtf8()), Identity(job.from, now, token)};
  job.text = message.text.ToUtf8();
  if (!message.attachment.Empty()) job.attachment = find(message.attachment);
  job.attachmentName = NameOf(job.attachment);
  return job;
}

}  // namespace vintoral
