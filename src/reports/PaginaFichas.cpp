#include "reports/PaginaFichas.h"

#include "records/Monitores.h"
#include "reports/FilaFicha.h"
#include "reports/Renglones.h"
#include "station/form1/Fotos.h"

namespace vintoral {
namespace {

/// Columns, counted from 0.
constexpr std::size_t kColumnaCategoria = 5, kColumnaValor = 8;

std::vector<Columna> Columnas(const std::array<String, 5>& etiquetas) {
  std::vector<Columna> columns = {
      {"HORA ENTRADA"_w, &tipo::kMomento}, {"PE"_w, &tipo::kPorteria},    {"HORA SALIDA"_w, &tipo::kMomento},
      {"PS"_w, &tipo::kPorteria},          {"FICHA"_w, &tipo::kFicha},    {"CATEGORIA"_w, &tipo::kTexto},
      {"IMAGEN"_w, &tipo::kImagen},        {"TIEMPO"_w, &tipo::kImporte}, {"VALOR"_w, &tipo::kImporte}};
  for (const String& label : etiquetas)
    columns.push_back({label, &tipo::kTexto});
  return columns;
}

}  // namespace

PaginaFichas::PaginaFichas(const DatosInforme& datos, Destino destino)
    : datos_(datos),
      tabla_(std::move(destino), Columnas(datos.etiquetas), datos.cabeza.titulo + " P"_w + datos.porteria) {}

void PaginaFichas::Fila(const RegistroFicha& ficha) {
  for (const std::string_view text :
       {ficha.MarcaEntrada.View(), ficha.PorteriaEntrada.View(), ficha.MarcaSalida.View(),
        ficha.PorteriaSalida.View(), ficha.NumeroFicha.View(), ficha.Categoria.View()})
    tabla_.Celda(text);
  const std::string_view folder = EstaDentro(ficha) ? carpeta_fotos::kAdentro : carpeta_fotos::kHistorial;
  tabla_.CeldaFoto(datos_.foto(folder, ficha.Posicion));
  tabla_.Celda(TiempoDeFila(ficha));
  tabla_.Celda(ValorDeFila(ficha));
  for (const std::string_view text : {ficha.Placa.View(), ficha.Nombre.View(), ficha.Apellido.View(),
                                      ficha.Telefono.View(), ficha.Observacion.View()})
    tabla_.Celda(text);
  tabla_.TerminarFila();
}

void PaginaFichas::CerrarDia(const Suma& subtotal) {
  tabla_.SaltarA(kColumnaValor);
  tabla_.Celda(ConMoneda(datos_.moneda, subtotal));
  tabla_.TerminarFila();
  tabla_.FilaVacia();
}

Outcome PaginaFichas::Terminar(std::int64_t registros, const Suma& total) {
  tabla_.FilaVacia();
  for (const String& stamp : datos_.cabeza.sellosPagina)
    tabla_.FilaDe(stamp);
  if (!datos_.cabeza.sellosPagina.empty()) tabla_.FilaVacia();
  tabla_.Celda(LineaRegistros(registros));
  tabla_.SaltarA(kColumnaCategoria);
  tabla_.Celda("TOTAL");
  tabla_.SaltarA(kColumnaValor);
  tabla_.Celda(ConMoneda(datos_.moneda, total));
  tabla_.TerminarFila();
  return tabla_.Terminar();
}

}  // namespace vintoral
