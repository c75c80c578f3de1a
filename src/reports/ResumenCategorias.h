// What a report tells of each category at its end.
#pragma once

#include <cstdint>
#include <vector>

#include "common/String.h"
#include "records/RegistroFicha.h"
#include "reports/Suma.h"

namespace vintoral {

struct RenglonCategoria {
  String nombre;
  std::int64_t salidas = 0;  ///< fichas gone
  std::int64_t activas = 0;  ///< fichas still inside
  Suma valor;                ///< of those gone
};

class ResumenCategorias {
 public:
  /// `categorias` as the list box of the screen has them.
  explicit ResumenCategorias(const std::vector<String>& categorias);

  /// One of no category of the list is in no line.
  void Contar(const RegistroFicha& ficha);
  /// In the order of the list.
  const std::vector<RenglonCategoria>& Renglones() const { return renglones_; }

 private:
  std::vector<RenglonCategoria> renglones_;
};

/// On paper: a line for the fichas gone where there are any, and one for those inside.
std::vector<String> LineasDeCategoria(const RenglonCategoria& renglon);

}  // namespace vintoral
