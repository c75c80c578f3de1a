#include "safety/clsCDOmail/clsCDOmail.h"

#include <memory>
#include <optional>

#include "station/form1/Form1.h"

namespace vintoral {
namespace {

/// So often a mail under way is looked after, in milliseconds; hands are served in between.
constexpr std::int64_t kStep = 50;
constexpr std::int32_t kLastPort = 65535;

/// "Jefe <jefe@correo.example>" is the address between the brackets.
String Direccion(std::string_view text) {
  const std::size_t open = text.find('<');
  const std::size_t close = text.find('>');
  const bool named = open != std::string_view::npos && close != std::string_view::npos && open < close;
  return Trim(named ? text.substr(open + 1, close - open - 1) : text);
}

bool ContainsAt(std::string_view address) {
  return address.find('@') != std::string_view::npos;
}

std::vector<String> Direcciones(std::string_view list) {
  std::vector<String> addresses;
  while (!list.empty()) {
    const std::size_t end = list.find_first_of(";,");
    String address = Direccion(list.substr(0, end));
    // The owner of an address may be named with a comma: what has no "@" is a piece of his name.
    if (ContainsAt(address)) addresses.push_back(std::move(address));
    list.remove_prefix(end == std::string_view::npos ? list.size() : end + 1);
  }
  return addresses;
}

/// The hourglass, as long as this lives.
class Hourglass {
 public:
  explicit Hourglass(Screen& screen) : screen_(screen) { screen_.Busy(true); }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;
  ~Hourglass() { screen_.Busy(false); }

 private:
  Screen& screen_;
};

}  // namespace

bool clsCDOmail::Enviar_Backup() {
  const Platform& devices = station_.Devices();
  if (!devices.mail.Connected(Servidor)) return false;
  if (Puerto < 1 || Puerto > kLastPort) return false;
  if (!Adjunto.Empty() && !devices.disk.Exists(Adjunto)) return false;
  const bool sent = Enviar(Componer());
  if (!sent && !station_.Terminado()) devices.screen.Beep();
  return sent;
}

bool clsCDOmail::Enviar(const MailMessage& message) {
  const Hourglass hourglass(station_.Devices().screen);
  const std::unique_ptr<Sending> sending = station_.Devices().mail.Send(message);
  std::optional<bool> sent = sending->Result();
  while (!sent && !station_.Terminado()) {
    station_.Esperar(kStep);
    sent = sending->Result();
  }
  return sent.value_or(false);
}

MailMessage clsCDOmail::Componer() const {
  MailMessage message;
  message.server = Servidor;
  message.port = Puerto;
  message.logIn = UseAutentificacion;
  if (UseAutentificacion) {
    message.user = Usuario;
    message.password = PassWord;
    if (SSL) message.privacy = StartTLS ? MailPrivacy::kStartTls : MailPrivacy::kTls;
  }
  message.from = Direccion(De);
  message.to = Direcciones(Para);
  message.subject = Asunto;
  message.text = Mensaje;
  message.attachment = Adjunto;
  return message;
}

}  // namespace vintoral
