#include "sales/form4/Form4.h"
#include "station/form1/Form1.h"
#include "tariffs/Articulos.h"

namespace vintoral {

void Form1::CargarArticulosExtras() {
  const std::vector<Articulo> articles = ArticulosDe(TablaExtras);
  CantidadArticulo.assign(articles.size(), 1);
  PrecioArticulo.clear();
  for (const Articulo& article : articles)
    PrecioArticulo.push_back(article.precio);
  if (Form4 != nullptr) Form4->MostrarArticulos(articles);
}

}  // namespace vintoral
