#include "sales/form4/Form4.h"

#include <algorithm>
#include <utility>

#include "common/Numbers.h"
#include "station/form1/Form1.h"
#include "station/forms/Keys.h"
#include "station/forms/ReglasTeclas.h"

namespace vintoral {
namespace {

/// From here on a quantity is refused.
constexpr Money kTope = Money::FromUnits(999'999'999);

const String& Nada() {
  static const String none = "0"_w;
  return none;
}

}  // namespace

Form4::Form4(Form1& station) : Form("Form4"), station_(station) {
  station_.Form4 = this;
  Nombrar();
  LblItem[kArticulo].Caption = "ARTÍCULO"_w;
  LblItem[kCantidad].Caption = "CANTIDAD"_w;
  LblItem[kValor].Caption = "VALOR"_w;
  LblItem[kSuma].Caption = "TOTAL"_w;
  ChkFactura.Caption = "Imprimir factura"_w;
  CmdRegistrar.Caption = "REGISTRAR"_w;
  for (TextBox& value : TxtTotal) {
    value.Locked = true;
    value.CanFocus = false;
  }
  for (ComboBox& quantity : CboCantidad) {
    quantity.Editable = true;
    quantity.MaxLength = kDigitos;
  }
  Conectar();
  ActualizarInfoForm4();
  SetFocus(&LstArticulo);
}

void Form4::Nombrar() {
  Add(LstArticulo, "LstArticulo");
  Add(CboCantidad, "CboCantidad");
  Add(TxtTotal, "TxtTotal");
  Add(LblItem, "LblItem");
  Add(ChkFactura, "ChkFactura");
  Add(ImgIndicador, "ImgIndicador");
  Add(CmdRegistrar, "CmdRegistrar");
}

void Form4::Conectar() {
  LstArticulo.OnClick = [this] { ActualizarInfoForm4(); };
  LstArticulo.OnTick = [this](std::size_t articulo) { AlMarcar(articulo); };
  LstArticulo.OnScroll = [this] { Desplazado(); };
  LstArticulo.OnChoose = [this] { TraerALaVista(LstArticulo.ListIndex); };
  for (std::size_t fila = 0; fila < kFilas; ++fila)
    ConectarCantidad(fila);
  ChkFactura.OnClick = [this] {
    if (Shown()) SetFocus(&LstArticulo);
  };
  CmdRegistrar.OnClick = [this] {
    station_.RegistrarValorExtra();
    station_.OpenForms.Unload(*this);
  };
}

void Form4::ConectarCantidad(std::size_t fila) {
  ComboBox& quantity = CboCantidad[fila];
  quantity.KeyRule = [this, &quantity](char character) { return TeclaDeCantidad(quantity, character); };
  quantity.OnChange = [this, fila] { CambiarCantidad(fila); };
  quantity.OnClick = [this, fila] { ContarCantidad(fila); };
  quantity.OnEnter = [this] { SetFocus(&CmdRegistrar); };
  quantity.OnGotFocus = [this, &quantity, fila] {
    LstArticulo.ListIndex = LstArticulo.TopIndex + static_cast<int>(fila);
    quantity.SelectAll();  // what is typed replaces it
  };
}

void Form4::MostrarArticulos(const std::vector<Articulo>& articulos) {
  std::vector<String> names;
  names.reserve(articulos.size());
  for (const Articulo& article : articulos)
    names.push_back(article.nombre);
  LstArticulo.List = std::move(names);
  LstArticulo.Checked.assign(articulos.size(), false);
  LstArticulo.ListIndex = articulos.empty() ? -1 : 0;
  LstArticulo.TopIndex = 0;
  ActualizarInfoForm4();
}

std::optional<std::size_t> Form4::ArticuloDe(std::size_t fila) const {
  const std::size_t article = static_cast<std::size_t>(LstArticulo.TopIndex) + fila;
  return article < LstArticulo.List.size() ? std::optional(article) : std::nullopt;
}

std::optional<std::size_t> Form4::FilaActual() const {
  if (LstArticulo.ListIndex < 0) return std::nullopt;
  return static_cast<std::size_t>(LstArticulo.ListIndex - LstArticulo.TopIndex);
}

bool Form4::EnCantidad() const {
  return std::any_of(CboCantidad.begin(), CboCantidad.end(),
                     [this](const ComboBox& quantity) { return Focus() == &quantity; });
}

std::vector<Renglon> Form4::Venta() const {
  std::vector<Renglon> sale;
  for (std::size_t i = 0; i < LstArticulo.List.size(); ++i) {
    if (EstaMarcado(i))
      sale.push_back({LstArticulo.List[i], station_.CantidadArticulo[i], station_.PrecioArticulo[i]});
  }
  return sale;
}

void Form4::ActualizarInfoForm4() {
  for (std::size_t fila = 0; fila < kFilas; ++fila)
    MostrarFila(fila);
  MostrarTotal();
}

void Form4::MostrarFila(std::size_t fila) {
  const std::optional<std::size_t> article = ArticuloDe(fila);
  const bool ticked = article && EstaMarcado(*article);
  ComboBox& quantity = CboCantidad[fila];
  if (!ticked && Focus() == &quantity) SetFocus(&LstArticulo);
  quantity.Visible = ticked;
  quantity.SetText(ticked ? Digits(station_.CantidadArticulo[*article]) : Nada());
  TxtTotal[fila].Visible = article.has_value();
  TxtTotal[fila].SetText(
      ticked ? ImporteDe(station_.PrecioArticulo[*article], station_.CantidadArticulo[*article]).Plain()
             : Nada());
}

void Form4::MostrarTotal() {
  const Money sum = TotalDe(Venta());
  TxtTotal[kTotal].SetText(EsImporte(sum) ? sum.Plain() : "¡ERROR!"_w);
}

void Form4::AlMarcar(std::size_t articulo) {
  LstArticulo.ListIndex = static_cast<int>(articulo);
  TraerALaVista(LstArticulo.ListIndex);
  ActualizarInfoForm4();
  ComboBox& quantity = CboCantidad[*FilaActual()];
  quantity.SetText(EstaMarcado(articulo) ? String() : Nada());  // emptied, it becomes one
  quantity.SelectAll();
}

void Form4::TraerALaVista(int articulo) {
  constexpr int kInView = static_cast<int>(kFilas);
  int& top = LstArticulo.TopIndex;
  const int before = top;
  top = std::clamp(top, std::max(0, articulo - kInView + 1), std::max(0, articulo));
  if (top != before) Desplazado();
}

void Form4::Desplazado() {
  if (EnCantidad()) SetFocus(&LstArticulo);
  ActualizarInfoForm4();
}

void Form4::CambiarCantidad(std::size_t fila) {
  ComboBox& quantity = CboCantidad[fila];
  if (!quantity.Text().Empty()) return ContarCantidad(fila);
  quantity.SetText("1"_w);  // which counts
  quantity.SelectAll();
}

void Form4::ContarCantidad(std::size_t fila) {
  const std::optional<std::size_t> article = ArticuloDe(fila);
  if (!article) return;
  ComboBox& quantity = CboCantidad[fila];
  std::int16_t& counted = station_.CantidadArticulo[*article];
  const std::int64_t typed = LeadingInteger(Left(quantity.Text(), kDigitos));
  const Money value = ImporteDe(station_.PrecioArticulo[*article], typed);
  // One of an article can always be sold, whatever it costs.
  if (value >= kTope && typed > 1 && typed != counted) {
    station_.Devices().screen.Beep();
    return quantity.SetText(Digits(counted));
  }
  counted = static_cast<std::int16_t>(typed);
  TxtTotal[fila].SetText(value.Plain());
  MostrarTotal();
}

KeyVerdict Form4::TeclaDeCantidad(const ComboBox& cantidad, char character) const {
  if (MinutesKey(character) == KeyVerdict::kBeep) return KeyVerdict::kBeep;
  const std::size_t kept = cantidad.Text().Size() - std::min(cantidad.SelLength, cantidad.Text().Size());
  return character == keys::kBackspace || kept < kDigitos ? KeyVerdict::kPass : KeyVerdict::kBeep;
}

bool Form4::Form_KeyDown(int KeyCode, int /*Shift*/) {
  if (KeyCode == keys::kEscape) {
    station_.OpenForms.Unload(*this);
    return true;
  }
  const bool moves = KeyCode == keys::kUp || KeyCode == keys::kDown || KeyCode == keys::kPageUp ||
                     KeyCode == keys::kPageDown;
  if (moves && EnCantidad()) SetFocus(&LstArticulo);
  return false;
}

bool Form4::Form_KeyPress(char character) {
  if (Focus() != &LstArticulo) return false;
  if (character == keys::kEnter) {
    SetFocus(&CmdRegistrar);
    return true;
  }
  if (character < '0' || character > '9') return false;
  TraerALaVista(LstArticulo.ListIndex);
  const std::optional<std::size_t> row = FilaActual();
  if (!row || !CboCantidad[*row].Visible) {
    station_.Devices().screen.Beep();
    return true;
  }
  SetFocus(&CboCantidad[*row]);
  return false;
}

void Form4::Form_Unload() {
  station_.Form4 = nullptr;
}

}  // namespace vintoral
