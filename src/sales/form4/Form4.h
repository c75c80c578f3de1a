// The dialog in which articles are sold: a list to tick, and beside its twenty rows in view how many of each
// and what they cost.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

#include "sales/Venta.h"
#include "station/forms/Form.h"
#include "tariffs/Articulos.h"

namespace vintoral {

class Form1;

class Form4 : public Form {
 public:
  /// What its title bar reads, in UTF-8.
  static constexpr const char* kTitulo = "Vintoral  -  Registrar Extras";
  static constexpr std::size_t kFilas = 20;
  static constexpr std::size_t kTotal = kFilas;  ///< TxtTotal of the whole sale
  enum { kArticulo, kCantidad, kValor, kSuma };  ///< LblItem
  static constexpr std::size_t kDigitos = 3;     ///< of a quantity

  explicit Form4(Form1& station);

  ListBox LstArticulo;
  std::array<ComboBox, kFilas> CboCantidad;
  std::array<TextBox, kFilas + 1> TxtTotal;
  std::array<Label, 4> LblItem;
  CheckBox ChkFactura;
  Image ImgIndicador;
  CommandButton CmdRegistrar;

  /// The articles that are for sale, none of them ticked.
  void MostrarArticulos(const std::vector<Articulo>& articulos);
  /// The rows in view as ticks and quantities say.
  void ActualizarInfoForm4();
  /// What is ticked, in the order of the list.
  std::vector<Renglon> Venta() const;

  /// Esc sells nothing. In a quantity the keys that move in the list lead back to it.
  bool Form_KeyDown(int KeyCode, int Shift) override;
  /// With the keyboard in the list, a digit begins the quantity of a ticked row, and Enter leads to
  /// REGISTRAR.
  bool Form_KeyPress(char character) override;
  void Form_Unload() override;

 private:
  void Nombrar();
  void Conectar();
  void ConectarCantidad(std::size_t fila);
  KeyVerdict TeclaDeCantidad(const ComboBox& cantidad, char character) const;
  /// The tick of an article was turned over.
  void AlMarcar(std::size_t articulo);
  /// The quantity of a row has another text.
  void CambiarCantidad(std::size_t fila);
  /// What stands in a row counts, as far as it may.
  void ContarCantidad(std::size_t fila);
  void MostrarFila(std::size_t fila);
  void MostrarTotal();
  void TraerALaVista(int articulo);
  /// Behind a scroll a row belongs to another article: the keyboard leaves its quantity.
  void Desplazado();
  bool EnCantidad() const;
  bool EstaMarcado(std::size_t articulo) const { return LstArticulo.Checked[articulo]; }
  /// The article of a row; nothing where the list has ended.
  std::optional<std::size_t> ArticuloDe(std::size_t fila) const;
  /// Where the row of the list stands that has the keyboard, once it is in view; nothing in an empty list.
  std::optional<std::size_t> FilaActual() const;

  Form1& station_;
};

}  // namespace vintoral
