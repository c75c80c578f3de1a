#include "reports/DocumentoID.h"

#include <algorithm>

#include "common/Moment.h"
#include "common/Numbers.h"
#include "reports/FinPeriodo.h"
#include "reports/PaginaTabla.h"
#include "station/form1/Fotos.h"

namespace vintoral {
namespace {

std::vector<Columna> Columnas(const DatosDocumento& datos) {
  const auto label = [&](std::size_t index) { return Columna{datos.etiquetas[index], &tipo::kTexto}; };
  const bool nuevos = datos.documento == Documento::kNuevos;
  std::vector<Columna> columns = {{nuevos ? "HORA ENTRADA"_w : "HORA SALIDA"_w, &tipo::kMomento}};
  if (nuevos) columns.push_back({"PE"_w, &tipo::kPorteria});
  columns.insert(columns.end(), {label(0),
                                 label(1),
                                 {"IMAGEN"_w, &tipo::kImagen},
                                 label(2),
                                 label(3),
                                 label(4),
                                 {"CATEGORIA"_w, &tipo::kTexto}});
  if (!nuevos) columns.push_back({"PUNTOS"_w, &tipo::kTexto});
  return columns;
}

String Titulo(const DatosDocumento& datos) {
  return (datos.documento == Documento::kNuevos ? "NUEVOS P"_w : "PUNTOS P"_w) + datos.porteria;
}

/// One way through the file, from its end.
class Lista {
 public:
  Lista(const DatosDocumento& datos, std::int64_t ultimo, Destino destino)
      : datos_(datos), ultimo_(ultimo), tabla_(std::move(destino), Columnas(datos), Titulo(datos)) {}

  /// False at the record that ends the list.
  bool Mirar(std::int64_t numero, const RegistroFicha& ficha);
  Outcome Terminar();

 private:
  bool Nuevos() const { return datos_.documento == Documento::kNuevos; }
  bool EsElBlanco(std::int64_t numero, const RegistroFicha& ficha) const {
    return numero == 1 && (Nuevos() || ficha == RegistroFicha{});
  }
  void Cerrar(bool siguenMas);
  void Fila(const RegistroFicha& ficha);
  std::optional<String> Foto(const RegistroFicha& ficha) const;

  const DatosDocumento& datos_;
  std::int64_t ultimo_;
  PaginaTabla tabla_;
  String fecha_;
  std::int64_t filas_ = 0;  ///< of the block
};

bool Lista::Mirar(std::int64_t numero, const RegistroFicha& ficha) {
  const String date = StampDate(Nuevos() ? ficha.MarcaEntrada.View() : ficha.MarcaSalida.View());
  const bool end = FinPeriodo(datos_.turnoActivo, ficha.InicioTurno);
  if (end || (date != fecha_ && numero != ultimo_)) Cerrar(numero > 1);
  fecha_ = date;
  if (end) return false;
  if (!EsElBlanco(numero, ficha)) Fila(ficha);
  return true;
}

void Lista::Cerrar(bool siguenMas) {
  constexpr std::size_t kColumnaPlaca = 1;
  tabla_.FilaVacia();
  if (!Nuevos()) {
    tabla_.SaltarA(kColumnaPlaca);
    tabla_.Celda(Digits(filas_));
    tabla_.TerminarFila();
  } else if (siguenMas) {
    tabla_.FilaVacia();
    tabla_.FilaVacia();
  }
  filas_ = 0;
}

std::optional<String> Lista::Foto(const RegistroFicha& ficha) const {
  if (!Nuevos()) return datos_.foto(carpeta_fotos::kHistorial, ficha.Posicion);
  // The blank record comes before the first user.
  return datos_.foto(carpeta_fotos::kPrimeras, std::int64_t{ficha.Posicion} - 1);
}

void Lista::Fila(const RegistroFicha& ficha) {
  tabla_.Celda(Nuevos() ? ficha.MarcaEntrada.View() : ficha.MarcaSalida.View());
  if (Nuevos()) tabla_.Celda(ficha.PorteriaEntrada.View());
  tabla_.Celda(ficha.Placa.View());
  tabla_.Celda(ficha.Nombre.View());
  tabla_.CeldaFoto(Foto(ficha));
  for (const std::string_view text :
       {ficha.Apellido.View(), ficha.Telefono.View(), ficha.Observacion.View(), ficha.Categoria.View()})
    tabla_.Celda(text);
  if (!Nuevos()) tabla_.Celda(Digits(ficha.UsuarioPuntos));
  tabla_.TerminarFila();
  ++filas_;
}

Outcome Lista::Terminar() {
  // A file without a blank record, and one that is longer than what is read of it, ends inside a block.
  if (filas_ > 0) Cerrar(false);
  tabla_.FilaVacia();
  tabla_.FilaDe(datos_.ahora);
  tabla_.FilaVacia();
  return tabla_.Terminar();
}

}  // namespace

Outcome EscribirDocumentoID(const DatosDocumento& datos, const Register<RegistroFicha>& archivo,
                            Destino destino) {
  const std::int64_t last = archivo.Count().PassOver().value_or(0);
  Lista list(datos, last, std::move(destino));
  const std::int64_t first = std::max<std::int64_t>(last - datos.limite + 1, 1);
  bool ended = false;
  const auto look = [&](std::int64_t number, const RegistroFicha& ficha) {
    ended = !datos.sigue(static_cast<double>(last - number) / static_cast<double>(last - first + 1));
    return !ended && list.Mirar(number, ficha);
  };
  archivo.WalkBack(last, first, look).PassOver();
  return ended ? InformeInterrumpido() : list.Terminar();
}

}  // namespace vintoral
