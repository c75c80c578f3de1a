// One mail, and how it goes out: the relay, the log-in, and what it says.
#pragma once

#include <cstdint>

#include "common/String.h"
#include "platform/MailMessage.h"

namespace vintoral {

class Form1;

class clsCDOmail {
 public:
  explicit clsCDOmail(Form1& station) : station_(station) {}

  String Servidor;
  String Para;  ///< addresses with ";" between them; empty places are passed over
  String De;
  String Asunto;
  String Mensaje;
  String Adjunto;  ///< station path of a file, empty for none
  std::int32_t Puerto = 0;
  String Usuario, PassWord;
  bool UseAutentificacion = false;
  bool SSL = false;       ///< counts with authentication alone
  bool StartTLS = false;  ///< with SSL: begun in clear

  /// One attempt; the screen is served while it lasts. True when the relay has taken it for all. False too
  /// when the program ends meanwhile: the mail under way is the device's then.
  bool Enviar_Backup();

 private:
  bool Enviar(const MailMessage& message);
  MailMessage Componer() const;

  Form1& station_;
};

}  // namespace vintoral
