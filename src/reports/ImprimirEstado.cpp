#include "reports/ArchivoInforme.h"
#include "reports/Avance.h"
#include "reports/HojaFicha.h"
#include "reports/InformeFichas.h"
#include "reports/Reunir.h"
#include "reports/form2/Form2.h"
#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"
#include "station/form1/Monitor.h"
#include "station/form1/Sonidos.h"

namespace vintoral {
namespace {

String SelloDe(const Form2& criterios, std::size_t hora, std::size_t fecha) {
  return criterios.TxtCampo[hora].Text() + "  ("_w + criterios.TxtCampo[fecha].Text() + ")"_w;
}

CabezaInforme CabezaDePantalla(const Form1& form) {
  const String now = StampOf(form.Devices().clock.Now());
  if (form.Form2 == nullptr) return CabezaDeEstado(now, IsPressed(form.PctBoton[boton::kUltimosEnSalir]));
  return CabezaDeBusqueda(now, SelloDe(*form.Form2, Form2::kDesdeHora, Form2::kDesdeFecha),
                          SelloDe(*form.Form2, Form2::kHastaHora, Form2::kHastaFecha));
}

/// The sheet of the one ficha that the screen shows.
InformeHecho Hoja(const Form1& form, Destino destino) {
  const DatosHoja data{.porteria = form.NumeroPorteria,
                       .moneda = form.Moneda,
                       .etiquetas = EtiquetasDeDatos(form),
                       .foto = FotoEnDisco(form)};
  return {EscribirHoja(data, form.FichaMostrada(), std::move(destino)), std::nullopt};
}

InformeHecho Estado(const Form1& form, bool formatoTiquete, bool detalle, Destino destino) {
  Avance way(form, EscribiendoInforme());
  DatosInforme data = ReunirInforme(form, CabezaDePantalla(form), formatoTiquete, detalle);
  data.sigue = [&way](double done) { return way.Sigue(done); };
  // A monitor's tick fills the view anew while the report is written; what was searched for stays.
  const std::vector<RegistroFicha> shown =
      form.Form2 == nullptr ? form.VistaFichas : std::vector<RegistroFicha>();
  return InformeEstado(data, form.Form2 == nullptr ? shown : form.VistaFichas, std::move(destino));
}

}  // namespace

void Form1::ImprimirEstado(bool formatoTiquete, bool detalle) {
  const bool sheet = !TxtCampo[0].Visible;
  if (TotalVista() < 1) return MidiWav(sonido::kClic);
  ArchivoInforme page(*this, archivo::kPagina);
  if (!page.Abierto()) return MidiWav(sonido::kClic);
  EntregarInforme(
      *this, page,
      sheet ? Hoja(*this, page.Destino()) : Estado(*this, formatoTiquete, detalle, page.Destino()));
}

}  // namespace vintoral
