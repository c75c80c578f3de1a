#include "common/Numbers.h"
#include "records/Monitores.h"
#include "station/form1/Filas.h"
#include "station/form1/Form1.h"
#include "station/form1/Fotos.h"

namespace vintoral {
namespace {

void MostrarCodigos(Form1& form, const RegistroFicha& ficha) {
  if (!form.TxtBarCode.Visible) return;
  form.TxtBarCodeOK.Visible = EstaDentro(ficha);
  form.TxtBarCodeOK.BackColor = kYellow;
}

}  // namespace

bool Form1::SenalarCelda(int cell) {
  const std::int32_t row = InicioPagina + cell;
  if (FichaEnCurso() || row > TotalVista() || PctFicha.TagNumber() == row) return false;
  const RegistroFicha ficha = VistaFichas[static_cast<std::size_t>(row - 1)];
  PctFicha.Tag = Digits(row);
  ShpCelda.Cell = cell;
  ShpCelda.Visible = true;
  EstadoCelda(true, false);
  MostrarCodigos(*this, ficha);
  if (EstaDentro(ficha)) CalcularEstadia(*this, ficha);
  EscribirFilas(*this, ficha);
  LblFechaSal.Caption = ficha.MarcaSalida.Trimmed();
  MostrarFotoFicha(*this, RutaFoto(*this, ficha));
  return true;
}

}  // namespace vintoral
