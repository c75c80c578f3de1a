#include "reports/ResumenCategorias.h"

#include <algorithm>

#include "common/Numbers.h"
#include "records/Monitores.h"
#include "reports/Tira.h"

namespace vintoral {
namespace {

constexpr std::size_t kAnchoCuenta = 7, kAnchoImporte = 9;

String EnColumna(std::string_view nombre, std::size_t ancho) {
  const String cut = Left(nombre, ancho);
  return cut + Blancos(ancho, cut.Size());
}

}  // namespace

ResumenCategorias::ResumenCategorias(const std::vector<String>& categorias) {
  for (const String& categoria : categorias)
    renglones_.push_back({.nombre = Trim(categoria), .valor = {}});
}

void ResumenCategorias::Contar(const RegistroFicha& ficha) {
  const std::string_view name = TrimBlanks(ficha.Categoria.View());
  const auto same = [&](const RenglonCategoria& renglon) { return EqualNoCase(renglon.nombre, name); };
  const auto found = std::find_if(renglones_.begin(), renglones_.end(), same);
  if (found == renglones_.end()) return;
  if (EstaDentro(ficha)) {
    ++found->activas;
    return;
  }
  ++found->salidas;
  found->valor += Suma(ficha.ValorCobrado);
}

std::vector<String> LineasDeCategoria(const RenglonCategoria& renglon) {
  constexpr std::size_t kAnchoNombre = 15;
  std::vector<String> lines;
  if (renglon.salidas > 0)
    lines.push_back(EnColumna(renglon.nombre, kAnchoNombre) +
                    AlignRight(Digits(renglon.salidas), kAnchoCuenta) +
                    AlignRight(renglon.valor.Texto(), kAnchoImporte));
  if (renglon.activas > 0)
    lines.push_back("*"_w + EnColumna(renglon.nombre, kAnchoNombre - 1) +
                    AlignRight(Digits(renglon.activas), kAnchoCuenta) + AlignRight("ACTIVO", kAnchoImporte));
  return lines;
}

}  // namespace vintoral
