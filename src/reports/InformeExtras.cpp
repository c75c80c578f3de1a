#include "reports/InformeExtras.h"

#include <algorithm>

#include "common/Numbers.h"
#include "reports/CuentaArticulos.h"
#include "reports/FinPeriodo.h"
#include "reports/Renglones.h"
#include "reports/Suma.h"
#include "reports/Tira.h"
#include "station/form1/Papel.h"

namespace vintoral {
namespace {

/// A text on its way to the file: every line but an empty one begins with a blank.
class Texto {
 public:
  explicit Texto(Destino destino) : escritor_(std::move(destino)) {}

  void Linea(const String& texto) { escritor_.Linea(" "_w + texto); }
  void Vacia() { escritor_.Linea(); }
  void Lineas(const std::vector<String>& lineas) {
    for (const String& linea : lineas)
      escritor_.Linea(linea);
  }
  void Columnas(const String& columnas) {
    Linea(ReglaGuiones());
    Linea(columnas);
    Linea(ReglaGuiones());
  }
  void Total(const String& moneda, const Suma& suma) {
    Linea(ReglaIguales());
    Linea(LineaTotal(moneda, suma));
    Linea(ReglaGuiones());
  }
  Outcome Terminar() {
    Vacia();
    return escritor_.Terminar();
  }

 private:
  Escritor escritor_;
};

void EscribirCabeza(Texto& texto, const DatosExtras& datos, const String& titulo, const String& columnas) {
  texto.Vacia();
  if (datos.turnoActivo) {
    texto.Linea(LineaTitulo("TURNO DE TRABAJO"_w, datos.porteria));
    texto.Linea(LineaInicio(datos.marcaTurno));
    texto.Linea(LineaFinal(datos.ahora));
  } else {
    texto.Linea(LineaTitulo(titulo, datos.porteria));
    texto.Linea(LineaHoraFecha(datos.ahora));
  }
  texto.Columnas(columnas);
  texto.Vacia();
  if (!datos.ventas) texto.Vacia();
}

bool Termina(const DatosExtras& datos, const RegistroExtra& venta) {
  return venta.HoraVenta == RegistroExtra::kSinHora || FinPeriodo(datos.turnoActivo, venta.MarcaTurnoExtra);
}

/// The sales that the report tells of, the newest first.
std::span<const RegistroExtra> Vendidas(const DatosExtras& datos) {
  const std::span<const RegistroExtra> all(*datos.ventas);
  const std::span<const RegistroExtra> list =
      all.first(std::min(all.size(), static_cast<std::size_t>(kRenglonesVenta)));
  const auto end = std::find_if(list.begin(), list.end(),
                                [&](const RegistroExtra& venta) { return Termina(datos, venta); });
  return list.first(static_cast<std::size_t>(end - list.begin()));
}

Suma Importe(const RegistroExtra& venta) {
  return Suma::Producto(venta.Cantidad, venta.PrecioUnitario).ACentavos();
}

String EntreParentesis(std::string_view fecha) {
  return "("_w + FechaDeVenta(fecha) + ")"_w;
}

/// The sales of one day.
void EscribirBloque(Texto& texto, const DatosExtras& datos, std::span<const RegistroExtra> dia) {
  CuentaArticulos count(datos.articulos);
  Suma sum;
  for (const RegistroExtra& sale : dia) {
    count.Contar(sale.Articulo, sale.Cantidad);
    sum += Importe(sale);
  }
  texto.Linea(EntreParentesis(dia.front().FechaVenta));
  texto.Lineas(count.Lineas());
  texto.Total(datos.moneda, sum);
  texto.Vacia();
}

String LineaDeVenta(const RegistroExtra& venta) {
  constexpr std::size_t kAnchoNombre = 11, kAnchoCantidad = 5, kAnchoValor = 9;
  const String name = Left(TrimBlanks(venta.Articulo), kAnchoNombre);
  return HoraDeVenta(venta.HoraVenta) + " "_w + name + Blancos(kAnchoNombre, name.Size()) +
         AlignRight(Digits(venta.Cantidad), kAnchoCantidad) + AlignRight(Importe(venta).Texto(), kAnchoValor);
}

void EscribirLista(Texto& texto, const DatosExtras& datos) {
  CuentaArticulos count(datos.articulos);
  Suma sum;
  const RegistroExtra* before = nullptr;
  for (const RegistroExtra& sale : Vendidas(datos)) {
    count.Contar(sale.Articulo, sale.Cantidad);
    if (before == nullptr || sale.FechaVenta != before->FechaVenta)
      texto.Linea(EntreParentesis(sale.FechaVenta));
    before = &sale;
    texto.Linea(LineaDeVenta(sale));
    sum += Importe(sale);
  }
  texto.Total(datos.moneda, sum);
  texto.Columnas("      DESC    CONTADOR    VALOR"_w);
  texto.Lineas(count.LineasVendidas());
  texto.Total(datos.moneda, sum);
}

}  // namespace

String FechaDeVenta(std::string_view fecha) {
  const std::string_view date = TrimBlanks(fecha);
  constexpr std::string_view kForma = "00/00/00";
  const auto fits = [](char form, char character) {
    return form == '0' ? character >= '0' && character <= '9' : character == form;
  };
  const bool isDate = std::equal(kForma.begin(), kForma.end(), date.begin(), date.end(), fits);
  return isDate ? String(date.substr(0, 6)) + "20"_w + String(date.substr(6)) : String(date);
}

String HoraDeVenta(std::int16_t hora) {
  const int hours = hora / 100, minutes = hora % 100;
  if (hora < 0 || hours > 23 || minutes > 59) return "??:??"_w;
  return Digits(hours, 2) + ":"_w + Digits(minutes, 2);
}

Outcome EscribirValorExtra(const DatosExtras& datos, Destino destino) {
  Texto text(std::move(destino));
  EscribirCabeza(text, datos, "EXTRAS"_w, "DESCRIPCION   CANTIDAD    VALOR"_w);
  if (!datos.ventas) return text.Terminar();
  for (std::span<const RegistroExtra> rest = Vendidas(datos); !rest.empty();) {
    const auto otherDay = [&](const RegistroExtra& sale) { return sale.FechaVenta != rest[0].FechaVenta; };
    const auto end = std::find_if(rest.begin(), rest.end(), otherDay);
    const auto length = static_cast<std::size_t>(end - rest.begin());
    EscribirBloque(text, datos, rest.first(length));
    rest = rest.subspan(length);
  }
  return text.Terminar();
}

Outcome EscribirContadorExtra(const DatosExtras& datos, Destino destino) {
  Texto text(std::move(destino));
  EscribirCabeza(text, datos, "DETALLE EXTRAS"_w, "HORA  DESCRIPCION CANT    VALOR"_w);
  if (datos.ventas) EscribirLista(text, datos);
  return text.Terminar();
}

}  // namespace vintoral
