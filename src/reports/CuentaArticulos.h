// How many of each article were sold.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "common/String.h"
#include "tariffs/Articulos.h"

namespace vintoral {

class CuentaArticulos {
 public:
  explicit CuentaArticulos(std::vector<Articulo> articulos);

  /// Of articles of the same name the first one is counted; one of no name in the list is not.
  void Contar(std::string_view nombre, std::int64_t cantidad);
  /// A line for each article, in their order: its name, its quantity, that many times its price of now.
  std::vector<String> Lineas() const;
  /// The same of those that were sold.
  std::vector<String> LineasVendidas() const;

 private:
  String Linea(std::size_t indice) const;

  std::vector<Articulo> articulos_;
  std::vector<std::int64_t> cantidades_;
};

}  // namespace vintoral
