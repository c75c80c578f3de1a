#include "entry/Salida.h"

#include "common/Numbers.h"
#include "records/Register.h"
#include "records/RegistroCodigo.h"
#include "station/form1/Form1.h"
#include "station/form1/Fotos.h"

namespace vintoral {
namespace {

/// Room on disk for the row of the history; a history that is missing is told by RegistrarHistorial.
bool ReservarHistorial(const Form1& form) {
  const String path = form.RutaCompartida("Vintoral.HST");
  Register<RegistroFicha> hst(form.Devices().disk, path, OpenMode::kReadWrite);
  if (hst.Missing()) return true;
  const Outcome reserved = hst ? hst.ReserveRow() : hst.Opened();
  reserved.PassOver();
  return static_cast<bool>(reserved);
}

Register<RegistroFicha> Puestos(const Form1& form) {
  return {form.Devices().disk, form.RutaCompartida("Vintoral.ACT"), OpenMode::kReadWrite};
}

Register<RegistroCodigo> Codigos(const Form1& form, OpenMode mode) {
  return {form.Devices().disk, form.RutaCompartida("Vintoral.CDB"), mode};
}

std::optional<RegistroCodigo> CodigoEn(const Form1& form, std::int64_t numero) {
  const Register<RegistroCodigo> codigos = Codigos(form, OpenMode::kRead);
  return codigos.Missing() ? std::nullopt : codigos.Read(numero).PassOver();
}

void AnotarSalida(Form1& form, std::int64_t numero) {
  RegistroFicha& ficha = form.FichaActual;
  ficha.EnUso = false;
  ficha.NumeroFicha = Digits(numero, 4);
  ficha.MarcaSalida = form.TextoSalida;
  ficha.PorteriaSalida = form.NumeroPorteria;
  ficha.Posicion = static_cast<std::int32_t>(numero);
}

/// A ficha that stays inside is found by its code.
void DevolverCodigo(const Form1& form, const PuestoLiberado& puesto) {
  if (!puesto.codigo || *puesto.codigo == RegistroCodigo{}) return;
  Codigos(form, OpenMode::kReadWrite).Write(puesto.numero, *puesto.codigo, true).PassOver();
}

/// The slot as it was before; nothing when it stays as it is, because it or the history can't be written.
std::optional<PuestoLiberado> LiberarPuesto(Form1& form, std::int64_t numero) {
  Register<RegistroFicha> act = Puestos(form);
  const std::optional<RegistroFicha> ficha = act.Read(numero).PassOver();
  // Without the slot, or without room for the history row, the ficha stays inside and on display: to free it
  // now would lose the money that goes with it.
  if (!ficha || !ReservarHistorial(form)) {
    form.BuscarEnlaceYa();
    return std::nullopt;
  }
  form.FichaActual = *ficha;
  // Where another gate retired it meanwhile, the row is written all the same.
  if (!ficha->EnUso) return PuestoLiberado{form.CarpetaCompartida, numero, *ficha, {}};
  const PuestoLiberado puesto{form.CarpetaCompartida, numero, *ficha, CodigoEn(form, numero)};
  AnotarSalida(form, numero);
  // The code first: once the slot is free, another gate may take it and write its own code there.
  if (puesto.codigo != RegistroCodigo{}) form.GuardarCodigoBarras(false);
  const Outcome freed = act.Write(numero, form.FichaActual, true);
  freed.PassOver();
  if (!freed) DevolverCodigo(form, puesto);
  return puesto;
}

/// The slot is as this gate has left it: another may have filled it since, or may have let the ficha out.
bool EsElLiberado(const Form1& form, const RegistroFicha& ahora, const RegistroFicha& ficha) {
  return !ahora.EnUso && ahora.PorteriaSalida.Trimmed() == form.NumeroPorteria &&
         ahora.MarcaEntrada == ficha.MarcaEntrada && ahora.Placa == ficha.Placa;
}

/// False while the slot can't be reached.
bool DevolverPuesto(const Form1& form, const PuestoLiberado& puesto) {
  Register<RegistroFicha> act = Puestos(form);
  const std::optional<RegistroFicha> ahora = act.Read(puesto.numero).PassOver();
  if (!ahora) return false;
  if (!EsElLiberado(form, *ahora, puesto.ficha)) return true;
  const Outcome written = act.Write(puesto.numero, puesto.ficha, true);
  written.PassOver();
  if (written) DevolverCodigo(form, puesto);
  return static_cast<bool>(written);
}

/// A ficha whose row could not be written stays inside: at once, or when its folder is back.
void QuedarAdentro(Form1& form, const PuestoLiberado& puesto) {
  form.BuscarEnlaceYa();
  form.FichaActual = puesto.ficha;
  if (!puesto.ficha.EnUso) return;  // another gate freed the slot
  if (!DevolverPuesto(form, puesto)) form.PuestosPendientes.push_back(puesto);
}

/// The photo of the entrance, under a name that only the row of its exit has.
String RutaApartada(const String& entrada, std::int32_t fila) {
  return entrada + ".fila"_w + Digits(fila);
}

/// Back to its slot; where the next photo stands by now, it was of somebody who is gone.
void DevolverFoto(Disk& disk, const String& apartada, const String& entrada) {
  disk.Move(apartada, entrada).PassOver();
  if (disk.Exists(apartada) && disk.Exists(entrada)) QuitarArchivo(disk, apartada);
}

/// Behind the row: until that stands, the ficha may have to be put back inside. `foto` is the photo as it
/// stood before the slot was free: another one is that of the next vehicle, which another gate puts there at
/// any moment. So the file is looked at once more where nobody can replace it any longer. Where no photo of
/// the exit could be made, that of the entrance takes its place.
void PasarFoto(Form1& form, std::int64_t numero, const std::optional<FileMark>& foto) {
  Disk& disk = form.Devices().disk;
  const String entrada = RutaFotoAdentro(form, numero);
  const bool apagada = form.ImgIndicador[indicador::kCamaraDesactivada].Visible;
  if (apagada || !foto || disk.Look(entrada) != foto) return;
  const String salida = RutaFoto(form, form.FichaActual);
  const String apartada = RutaApartada(entrada, form.FichaActual.Posicion);
  const Outcome movida = disk.Move(entrada, apartada);
  movida.PassOver();
  if (!movida) return;
  const bool suya = disk.Look(apartada) == foto;
  if (suya && !disk.Exists(salida)) disk.Copy(apartada, salida).PassOver();
  if (!suya || !disk.Exists(salida)) return DevolverFoto(disk, apartada, entrada);
  QuitarArchivo(disk, apartada);
}

}  // namespace

void Form1::DevolverPuestos() {
  std::erase_if(PuestosPendientes, [this](const PuestoLiberado& puesto) {
    return puesto.carpeta == CarpetaCompartida && DevolverPuesto(*this, puesto);
  });
}

bool PasarAlHistorial(Form1& form) {
  form.DevolverPuestos();  // it may be one of them that leaves
  const std::int64_t numero = form.NumeroEscrito();
  const std::optional<FileMark> foto = form.Devices().disk.Look(RutaFotoAdentro(form, numero));
  const std::optional<PuestoLiberado> puesto = LiberarPuesto(form, numero);
  if (!puesto) return false;
  // Another gate has retired the same ficha, and added its points.
  const std::int64_t ganados = form.PuntosEstadia;
  if (!puesto->ficha.EnUso) form.PuntosEstadia = 0;
  const bool registrada = form.RegistrarHistorial();
  form.PuntosEstadia = ganados;
  if (registrada) {
    const bool conFila = form.FichaActual.EnUso;  // not where there is no history
    if (puesto->ficha.EnUso && conFila) PasarFoto(form, numero, foto);
    return true;
  }
  QuedarAdentro(form, *puesto);
  return false;
}

}  // namespace vintoral
