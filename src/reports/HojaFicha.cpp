#include "reports/HojaFicha.h"

#include "records/Monitores.h"
#include "reports/FilaFicha.h"
#include "reports/Suma.h"
#include "station/form1/Fotos.h"

namespace vintoral {
namespace {

constexpr std::string_view kBlanco = "&nbsp;";

void EscribirBlancos(Escritor& hoja, int cuantos) {
  for (int i = 0; i < cuantos; ++i)
    hoja.Escribir(kBlanco);
}

void EscribirFoto(Escritor& hoja, const DatosHoja& datos, const RegistroFicha& ficha) {
  const std::string_view folder = EstaDentro(ficha) ? carpeta_fotos::kAdentro : carpeta_fotos::kHistorial;
  const std::optional<String> photo = datos.foto(folder, ficha.Posicion);
  if (!photo) return;
  hoja.Escribir("<P><IMG src=\"file:///");
  hoja.EscribirVisible(*photo);
  hoja.Linea("\" width=\"320\" height=\"240\" border=1></P>");
}

void EscribirSello(Escritor& hoja, std::string_view rotulo, std::string_view sello,
                   std::string_view porteria) {
  hoja.Escribir(rotulo);
  hoja.EscribirVisible(TrimBlanks(sello));
  hoja.Escribir("&nbsp;P");
  hoja.EscribirVisible(TrimBlanks(porteria));
  hoja.Linea("<BR>");
}

/// Labels are brought to one width with a blank of their own, which typing can't lose.
void EscribirEtiqueta(Escritor& hoja, std::string_view etiqueta) {
  constexpr char kBlancoDeEtiqueta = '\xAC';
  for (std::size_t at = 0; at < etiqueta.size(); ++at) {
    if (etiqueta[at] == kBlancoDeEtiqueta) {
      hoja.Escribir(kBlanco);
    } else {
      hoja.EscribirVisible(etiqueta.substr(at, 1));
    }
  }
}

void EscribirCampos(Escritor& hoja, const DatosHoja& datos, const RegistroFicha& ficha) {
  const std::array values = {ficha.Placa.View(), ficha.Nombre.View(), ficha.Apellido.View(),
                             ficha.Telefono.View(), ficha.Observacion.View()};
  for (std::size_t i = 0; i < values.size(); ++i) {
    EscribirEtiqueta(hoja, datos.etiquetas[i]);
    hoja.Escribir(" : ");
    hoja.EscribirVisible(TrimBlanks(values[i]));
    hoja.Linea(i == 0 ? "<BR><BR>" : "<BR>");
  }
}

void EscribirEstadia(Escritor& hoja, const DatosHoja& datos, const RegistroFicha& ficha) {
  constexpr int kAntesDeTiempo = 6, kAntesDeValor = 7;
  const String value =
      EstaDentro(ficha) ? ValorDeFila(ficha) : ConMoneda(datos.moneda, Suma(ficha.ValorCobrado));
  EscribirBlancos(hoja, kAntesDeTiempo);
  hoja.Linea("TIEMPO : "_w + TiempoDeFila(ficha) + "<BR>"_w);
  EscribirBlancos(hoja, kAntesDeValor);
  hoja.Escribir("VALOR : ");
  hoja.EscribirVisible(value);
  hoja.Linea("</B></FONT></P>");
}

}  // namespace

Outcome EscribirHoja(const DatosHoja& datos, const RegistroFicha& ficha, Destino destino) {
  Escritor sheet(std::move(destino));
  sheet.Linea("<HTML><HEAD><TITLE>Vintoral - BÚSQUEDA P"_w + datos.porteria + "</TITLE></HEAD>"_w);
  sheet.Linea("<BODY text=#000000 bgColor=#ffffff>");
  EscribirFoto(sheet, datos, ficha);
  sheet.Escribir("<P><FONT face=\"Courier New\" size=3><B>&nbsp;&nbsp;&nbsp;&nbsp;No.FICHA : ");
  sheet.EscribirVisible(TrimBlanks(ficha.NumeroFicha.View()));
  sheet.Linea("<BR><BR>");
  EscribirSello(sheet, " ENTRADA : ", ficha.MarcaEntrada.View(), ficha.PorteriaEntrada.View());
  EscribirSello(sheet, "&nbsp; SALIDA : ", ficha.MarcaSalida.View(), ficha.PorteriaSalida.View());
  EscribirCampos(sheet, datos, ficha);
  sheet.Escribir("&nbsp;&nbsp;&nbsp;CATEGORIA : ");
  sheet.EscribirVisible(TrimBlanks(ficha.Categoria.View()));
  sheet.Linea("<BR><BR>");
  EscribirEstadia(sheet, datos, ficha);
  sheet.Linea("<P>&nbsp;</P></BODY></HTML>");
  return sheet.Terminar();
}

}  // namespace vintoral
