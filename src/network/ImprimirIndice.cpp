#include <span>
#include <tuple>

#include "common/Numbers.h"
#include "station/form1/Form1.h"
#include "station/form1/Fotos.h"

namespace vintoral {
namespace {

/// Number and photo of each. A site without cameras works with the numbers alone.
void DibujarCeldas(Form1& form) {
  const std::span<const RegistroFicha> page = form.Pagina();
  for (std::size_t cell = 0; cell < page.size(); ++cell) {
    Image& image = form.ImgFicha[cell];
    image.Caption = page[cell].NumeroFicha.Trimmed();
    image.Visible = true;
  }
  DibujarFotos(form);
}

void EscribirCuenta(Form1& form) {
  const std::int32_t total = form.TotalVista();
  const bool another = total % Form1::kCeldas != 0 || total == 0;
  const std::int32_t pages = total / Form1::kCeldas + (another ? 1 : 0);
  form.LblInfo[0].Caption = Digits(total) + " ( "_w + Digits(form.InicioPagina / Form1::kCeldas + 1) + "/"_w +
                            Digits(pages) + " )  "_w;
}

/// The pointer rests where it was, but the record under it may be another one, or gone. What is typed
/// meanwhile, the minutes of a monitor or a label, is left alone.
void SeguirPuntero(Form1& form, std::int32_t cell) {
  if (static_cast<std::size_t>(cell) >= form.Pagina().size()) return form.QuitarCelda();
  form.PctFicha.Tag = "0"_w;
  std::ignore = form.SenalarCelda(cell);
}

}  // namespace

void Form1::ImprimirIndice() {
  const bool pointed = PctFicha.TagNumber() != 0;
  const std::int32_t cell = ShpCelda.Cell;
  LimpiarPantalla();
  // The page has run empty; the one before is drawn.
  if (InicioPagina > 1 && InicioPagina > TotalVista())
    return PctBoton_Click(static_cast<int>(boton::kRetroceder));
  DibujarCeldas(*this);
  EscribirCuenta(*this);
  if (FichaEnPantalla()) MarcarCelda();
  if (pointed) SeguirPuntero(*this, cell);
}

}  // namespace vintoral
