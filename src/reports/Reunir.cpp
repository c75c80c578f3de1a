#include "reports/Reunir.h"

#include "common/Numbers.h"
#include "station/form1/Form1.h"
#include "station/form1/Monitor.h"

namespace vintoral {
namespace {

std::optional<FormatoTira> FormatoDeTira(const Form1& form, bool formatoTiquete, bool detalle) {
  if (!formatoTiquete) return std::nullopt;
  const bool invoices = IsPressed(form.PctBoton[boton::kFacturas]);
  const RegistroFactura& invoice = form.FacturaActual;
  const RegistroTiquete& ticket = form.TiqueteActual;
  return FormatoTira{.impresora = String(invoices ? invoice.Impresora.View() : ticket.Impresora.View()),
                     .tamano = invoices ? invoice.DimFuente : ticket.DimFuente,
                     .detalle = detalle};
}

}  // namespace

std::array<String, 5> EtiquetasDeDatos(const Form1& form) {
  std::array<String, 5> labels;
  for (std::size_t i = 0; i < labels.size(); ++i)
    labels[i] = form.TxtEtiqueta[i + 1].Text();
  return labels;
}

FotoInforme FotoEnDisco(const Form1& form) {
  return [&form](std::string_view carpeta, std::int64_t numero) -> std::optional<String> {
    const String name = "\\"_w + Digits(numero, 6) + ".jpg"_w;
    if (!form.Devices().disk.Exists(form.RutaCompartida(carpeta) + name)) return std::nullopt;
    return form.CarpetaCompartida + "\\"_w + String(carpeta) + name;
  };
}

String EscribiendoInforme() {
  return "Escribiendo el informe…"_w;
}

DatosInforme ReunirInforme(const Form1& form, CabezaInforme cabeza, bool formatoTiquete, bool detalle) {
  return {.cabeza = std::move(cabeza),
          .porteria = form.NumeroPorteria,
          .moneda = form.Moneda,
          .etiquetas = EtiquetasDeDatos(form),
          .categorias = form.CboTarifa[1].List(),
          .busqueda = IsPressed(form.PctBoton[boton::kBuscar]),
          .tira = FormatoDeTira(form, formatoTiquete, detalle),
          .foto = FotoEnDisco(form)};
}

}  // namespace vintoral
