#include <algorithm>

#include "common/Numbers.h"
#include "station/form1/Form1.h"
#include "station/form1/Fotos.h"

namespace vintoral {
namespace {

const RegistroFicha& RegistroDe(const Form1& form, std::int32_t cell) {
  return form.VistaFichas[static_cast<std::size_t>(form.InicioPagina + cell - 1)];
}

/// How many cells of the page have a record.
std::int32_t Ocupadas(const Form1& form) {
  return std::clamp(form.TotalVista() - form.InicioPagina + 1, 0, Form1::kCeldas);
}

/// Number and photo. A site without cameras works with the numbers alone.
void DibujarCelda(Form1& form, std::int32_t cell) {
  const RegistroFicha& ficha = RegistroDe(form, cell);
  Image& image = form.ImgFicha[static_cast<std::size_t>(cell)];
  image.Caption = ficha.NumeroFicha.Trimmed();
  image.Picture = FotoDeCelda(form, RutaFoto(form, ficha));
  image.Visible = true;
}

void EscribirCuenta(Form1& form) {
  const std::int32_t total = form.TotalVista();
  const bool another = total % Form1::kCeldas != 0 || total == 0;
  const std::int32_t pages = total / Form1::kCeldas + (another ? 1 : 0);
  form.LblInfo[0].Caption = Digits(total) + " ( "_w + Digits(form.InicioPagina / Form1::kCeldas + 1) + "/"_w +
                            Digits(pages) + " )  "_w;
}

/// The pointer rests where it was, but the record under it may be another one, or gone.
void SeguirPuntero(Form1& form, std::int32_t cell) {
  if (cell >= Ocupadas(form)) return form.SalirDeCelda();
  form.PctFicha.Tag = "0"_w;
  form.ImgFicha_MouseMove(cell);
}

}  // namespace

void Form1::ImprimirIndice() {
  const bool pointed = PctFicha.TagNumber() != 0;
  const std::int32_t cell = ShpCelda.Cell;
  LimpiarPantalla();
  // The page has run empty; the one before is drawn.
  if (InicioPagina > 1 && InicioPagina > TotalVista())
    return PctBoton_Click(static_cast<int>(boton::kRetroceder));
  for (std::int32_t each = 0; each < Ocupadas(*this); ++each)
    DibujarCelda(*this, each);
  EscribirCuenta(*this);
  if (FichaEnPantalla()) MarcarCelda();
  if (pointed) SeguirPuntero(*this, cell);
}

}  // namespace vintoral
