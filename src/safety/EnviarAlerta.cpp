#include "safety/clsCDOmail/clsCDOmail.h"
#include "safety/form9/Form9.h"
#include "station/form1/Correo.h"
#include "station/form1/Form1.h"

namespace vintoral {
namespace {

constexpr std::int64_t kSeLee = 3000;  // milliseconds

String Destinatarios(const Form1& form) {
  String all;
  for (std::size_t i = Form9::kPrimerCorreo; i < form.DatosCall.size(); ++i)
    all += (i == Form9::kPrimerCorreo ? ""_w : "; "_w) + Trim(form.DatosCall[i]);
  return all;
}

void Dirigir(clsCDOmail& correo, const AjustesCorreo& settings) {
  correo.Servidor = settings.servidor;
  correo.Puerto = settings.puerto;
  correo.UseAutentificacion = settings.autenticacion;
  correo.SSL = settings.tls;
  correo.StartTLS = settings.starttls;
  correo.Usuario = settings.usuario;
  correo.PassWord = settings.clave;
  correo.De = settings.de;
}

void Escribir(clsCDOmail& correo, const Form1& form) {
  constexpr std::string_view kLineBreaks = "\r\n\r\n";
  correo.Asunto = Trim(form.DatosCall[Form9::kAsunto]);
  correo.Para = Destinatarios(form);
  correo.Mensaje = Trim(form.DatosCall[Form9::kMensaje]) + String(kLineBreaks) +
                   "Enviado desde mi Vintoral 10.25"_w + String(kLineBreaks);
}

}  // namespace

void Form1::EnviarAlerta() {
  clsCDOmail correo(*this);
  Dirigir(correo, LeerCorreo(platform_.disk));
  Escribir(correo, *this);
  if (correo.Enviar_Backup() || Terminado()) return;
  LblInfo[3].Caption = "IMPOSIBLE ENVIAR"_w;
  Esperar(kSeLee);
}

}  // namespace vintoral
