// Any bytes as the settings of the relay, and as all that an alert says: none of it ends a line of the mail.
#include "platform/mail/MailJob.h"
#include "station/form1/Correo.h"

namespace {

/// Lines end only where they are folded.
bool IsOneHeader(std::string_view header) {
  for (std::size_t i = 0; i < header.size(); ++i) {
    const bool fold = header.substr(i, 3) == "\r\n ";
    if (fold) {
      i += 2;
    } else if ((header[i] >= 0 && header[i] < ' ') || header[i] == '\x7F') {
      return false;
    }
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  using namespace vintoral;
  const std::string_view file(reinterpret_cast<const char*>(data), size);
  const AjustesCorreo settings = AjustesCorreoDe(file);
  if (settings.starttls && !settings.tls) __builtin_trap();
  MailMessage message;
  message.server = settings.servidor;
  message.from = settings.de;
  message.to = {settings.usuario, String(file)};
  message.subject = String(file);
  message.text = String(file);
  const MailJob job = JobOf(
      message, [](std::string_view) { return std::string(); }, 0, 0);
  for (const std::string& header : job.headers)
    if (!IsOneHeader(header)) __builtin_trap();
  for (const std::string& address : job.to)
    if (address.find_first_of("<> \r\n") != std::string::npos) __builtin_trap();
  return 0;
}
