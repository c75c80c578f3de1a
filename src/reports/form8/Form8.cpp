#include "reports/form8/Form8.h"

#include <algorithm>
#include <limits>

#include "common/Numbers.h"
#include "reports/Factura.h"
#include "station/form1/Archivos.h"
#include "station/form1/DetalleEstadia.h"
#include "station/form1/Form1.h"
#include "station/form1/Monitor.h"
#include "station/form1/Papel.h"
#include "station/form1/Sonidos.h"
#include "station/forms/ReglasTeclas.h"

namespace vintoral {
namespace {

constexpr std::size_t kAnchoPrefijo = 25, kAnchoNumero = 6, kAnchoImpuesto = 4;

/// A text of which all is marked as soon as the focus comes: typing replaces it.
void MarcarAlEntrar(TextBox& text, std::size_t width) {
  text.OnGotFocus = [&text, width] { text.Select(0, width); };
}

}  // namespace

Form8::Form8(Form1& station) : EditorFormato("Form8", station, "Guardar Formato de Facturas"_w) {
  station_.Form8 = this;
  Nombrar();
  ChkPuntos.Caption = " Imprimir "_w;
  ChkCopia.Caption = "Imprimir Copia"_w;
  LimitarTextos();
  Mostrar();
  VolverAlBoton(ChkPuntos);
  VolverAlBoton(ChkCopia);
  Conectar();
}

void Form8::Nombrar() {
  Add(CboImpresora, "CboImpresora");
  Add(CboDimFuente, "CboDimFuente");
  Add(TxtEtiqueta[kEncabezado], "TxtEtiqueta(0)");
  Add(TxtPrefijo, "TxtPrefijo");
  Add(TxtNumEtiqueta, "TxtNumEtiqueta");
  Add(TxtEtiqueta[kVista], "TxtEtiqueta(1)");
  for (std::size_t i = 0; i < ChkEtiqueta.size(); ++i)
    Add(ChkEtiqueta[i], "ChkEtiqueta(" + std::to_string(i + 1) + ")");
  Add(ChkPuntos, "ChkPuntos");
  Add(TxtImpuesto, "TxtImpuesto");
  Add(TxtEtiqueta[kPie], "TxtEtiqueta(2)");
  Add(ChkCopia, "ChkCopia");
  Add(PctBoton, "PctBoton");
  Add(CmdPrueba, "CmdPrueba");
  Add(LblDimFuente, "LblDimFuente");
  Add(FraCheck, "FraCheck");
  Add(PctSeleccion, "PctSeleccion");
  Add(LblFondo, "LblFondo");
}

void Form8::LimitarTextos() {
  TxtPrefijo.MaxLength = kAnchoPrefijo;
  MarcarAlEntrar(TxtPrefijo, kAnchoPrefijo);
  TxtNumEtiqueta.MaxLength = kAnchoNumero;
  TxtNumEtiqueta.KeyRule = CountFieldKey;
  MarcarAlEntrar(TxtNumEtiqueta, kAnchoNumero);
  for (TextBox& tax : TxtImpuesto) {
    tax.KeyRule = DecimalFieldKey;
    LimitDecimal(tax);
    MarcarAlEntrar(tax, kAnchoImpuesto);
  }
}

void Form8::Mostrar() {
  TxtEtiqueta[kVista].SetText(Vista());
  if (station_.Devices().disk.Exists(archivo::kFactura)) {
    MostrarFormato(station_.FacturaActual);
  } else {
    MostrarPredeterminado();
  }
}

void Form8::MostrarFormato(const RegistroFactura& format) {
  MostrarComunes(format.Impresora.View(), TamanoFuente(format.DimFuente), format.Encabezado.View(),
                 format.Pie.View());
  TxtPrefijo.SetText(PrefijoDe(format));
  TxtNumEtiqueta.SetText(Digits(NumeroSiguiente(format.NumFactura)));
  // As long as what can be typed: a blank or a digit behind it would join what is typed over it.
  TxtImpuesto[kEstadias].SetText(Left(TextoPorcentaje(Porcentaje(format.Impuesto)), kAnchoImpuesto));
  TxtImpuesto[kExtras].SetText(Left(TextoPorcentaje(Porcentaje(format.ImpuestoExtras)), kAnchoImpuesto));
  ChkCopia.Value = format.Copia ? 1 : 0;
  ChkPuntos.Value = format.Puntos ? 1 : 0;
}

void Form8::MostrarPredeterminado() {
  TxtEtiqueta[kEncabezado].SetText("        V I N T o r a l\r\n    EXIJA SIEMPRE SU FACTURA\r\n"_w);
  TxtEtiqueta[kPie].SetText("\r\n    GRACIAS POR PREFERIRNOS\r\n      "_w + Dominio(station_.DireccionWeb()) +
                            "\r\n"_w);
  TxtPrefijo.SetText("No.FACTURA"_w);
  TxtNumEtiqueta.SetText("1"_w);
  for (TextBox& tax : TxtImpuesto)
    tax.SetText("0"_w);
}

String Form8::Vista() const {
  const String lineBreak(kFinDeLinea);
  return lineBreak + lineBreak + "HORA/FECHA  hh:mm  (dd/mm/aaaa)"_w + lineBreak + ReglaGuiones() +
         lineBreak + LineasDeCampos() + ReglaGuiones() + lineBreak + "CATEGORIA : "_w + Muestra() +
         lineBreak + "  *PUNTOS : "_w + Muestra() + lineBreak + lineBreak + "   IMPUESTO     %"_w +
         lineBreak + " IMP.EXTRAS     %"_w;
}

RegistroFactura Form8::Formato() const {
  constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
  RegistroFactura format;
  format.Impresora = CboImpresora.Text();
  format.DimFuente = Tamano();
  format.Encabezado = TxtEtiqueta[kEncabezado].Text();
  format.Prefijo = TxtPrefijo.Text() + String(1, kMarca);
  format.NumFactura =
      static_cast<std::int32_t>(std::clamp<std::int64_t>(LeadingInteger(TxtNumEtiqueta.Text()), 0, kMost));
  format.Impuesto = NumeroDecimal(TxtImpuesto[kEstadias].Text());
  format.ImpuestoExtras = NumeroDecimal(TxtImpuesto[kExtras].Text());
  format.Copia = ChkCopia.Value != 0;
  format.Puntos = ChkPuntos.Value != 0;
  format.Pie = TxtEtiqueta[kPie].Text();
  return format;
}

void Form8::Guardar() {
  const bool on = IsPressed(station_.PctBoton[boton::kFacturas]);
  station_.MidiWav(on ? sonido::kClic : voz::kFacturasActivadas);
  station_.ActualizarLineaFCT();
  station_.CopiarFactura(true);
  if (!on) station_.ActivarFacturas();
}

PrintDocument Form8::Prueba() const {
  const RegistroFactura format = Formato();
  const String stamp = StampOf(station_.Devices().clock.Now());
  DatosEstadia stay{.campos = CamposDePrueba(),
                    .entrada = stamp,
                    .salida = stamp,
                    .categoria = Muestra(),
                    .puntos = {},
                    .tiempo = "00H 00M "_w};
  if (format.Puntos) stay.puntos = 0;
  constexpr std::int64_t kPrice = 10'000;
  DatosFactura sample = station_.FacturaDe(Money::FromUnits(kPrice), DetalleEstadia(stay), format.Impuesto);
  sample.formato = format;
  sample.efectivo = {};
  return FacturaImpresa(sample);
}

void Form8::Form_Unload() {
  Form_MouseMove();
  station_.Form8 = nullptr;
}

}  // namespace vintoral
