// The small settings files: currency, labels, screen state.
#include <algorithm>

#include "common/Numbers.h"
#include "records/LineaTexto.h"
#include "records/Piezas.h"
#include "records/Register.h"
#include "records/RegistroMixto.h"
#include "station/form1/Form1.h"

namespace vintoral {
namespace {

constexpr std::string_view kDat = "Recursos\\Vintoral.DAT";
constexpr std::string_view kDvs = "Recursos\\Vintoral.DVS";
constexpr std::int64_t kEstado = 1, kMarcas = 16;
constexpr std::size_t kMonedaWidth = 10;

std::int16_t Short(std::int64_t value) {
  constexpr std::int64_t kLargest = 32767;
  return static_cast<std::int16_t>(value > kLargest ? kLargest : value < -kLargest ? -kLargest : value);
}

/// The largest number that money holds.
constexpr std::int64_t kMostUnits = 922'337'203'685'477;

/// One record of DAT; nothing where the file doesn't reach it.
std::optional<RegistroMixto> ReadDat(Disk& disk, std::int64_t number) {
  const Register<RegistroMixto> dat(disk, kDat, OpenMode::kRead);
  if (dat.Missing() || dat.Count().PassOver().value_or(0) < number) return std::nullopt;
  return dat.Read(number).PassOver();
}

/// Writes one record of DAT, whole on disk when this returns.
void WriteDat(Disk& disk, std::int64_t number, const RegistroMixto& record) {
  disk.ClearReadOnly(kDat).PassOver();
  Register<RegistroMixto> dat(disk, kDat, OpenMode::kCreate);
  (dat ? dat.Write(number, record, true) : dat.Opened()).PassOver();
}

}  // namespace

void Form1::CargarMoneda() {
  const Result<String> text = platform_.disk.ReadAll(kDvs);
  Moneda = text ? Left(PrimeraLinea(*text), kMonedaWidth) : "$"_w;
  if (text.Why().Missing()) return platform_.disk.Replace(kDvs, ConFinDeLinea(Moneda)).PassOver();
  text.Why().PassOver();
}

void Form1::CopiarMoneda() {
  if (Form6.TxtMoneda.TagNumber() != 1) return;
  const String symbol = Left(TrimBlanks(Form6.TxtMoneda.Text()), kMonedaWidth);
  const Outcome written = platform_.disk.Replace(kDvs, ConFinDeLinea(symbol));
  written.PassOver();
  if (written) Moneda = symbol;
}

void Form1::CargarEtiquetas() {
  const String path = RutaCompartida("Vintoral.LBL");
  const bool stored = platform_.disk.Exists(path);
  etiquetasLeidas_ = stored || platform_.disk.Exists(RutaCompartida("Vintoral.ACT"));
  if (stored) {
    const Register<RegistroEtiquetas> lbl(platform_.disk, path, OpenMode::kRead);
    const std::optional<RegistroEtiquetas> record = lbl.Read(1).PassOver();
    if (!record || lbl.Count().PassOver().value_or(0) < 1) return;
    EtiquetasActuales = *record;
    for (std::size_t i = 0; i < TxtEtiqueta.size(); ++i) {
      TxtEtiqueta[i].SetText(EtiquetasActuales.Etiqueta[i].Trimmed() + " "_w);
    }
  } else {
    EtiquetasActuales.MemoriaRostros = 0;
    EtiquetasActuales.ImprimirCampo.fill(true);
  }
  ImgIndicador[2].Visible = EtiquetasActuales.MemoriaRostros == -1;
}

void Form1::GuardarEtiquetas() {
  if (!etiquetasLeidas_) return;  // the folder was away all along: what stands here are not the site's labels
  const String path = RutaCompartida("Vintoral.LBL");
  platform_.disk.ClearReadOnly(path).PassOver();
  Register<RegistroEtiquetas> lbl(platform_.disk, path, OpenMode::kCreate);
  for (std::size_t i = 0; i < TxtEtiqueta.size(); ++i)
    EtiquetasActuales.Etiqueta[i] = Trim(TxtEtiqueta[i].Text());
  EtiquetasActuales.MemoriaRostros = ImgIndicador[2].Visible ? -1 : 0;
  (lbl ? lbl.Write(1, EtiquetasActuales, true) : lbl.Opened()).PassOver();
}

void Form1::CargarEstadoPantalla() {
  const std::optional<RegistroMixto> record = ReadDat(platform_.disk, kEstado);
  if (!record) return;
  PctBoton[7].Tag = Digits(record->Numero1);
  PctBoton[8].Tag = Digits(record->Numero2);
  PctBoton[9].Tag = record->Importe.Plain();
  if (record->Marca) {
    PctBoton[10].BorderStyle = 1;
    CmdNumeroFicha.Enabled = true;
  }
  PctBoton[14].BorderStyle = NumberOf(record->CampoB) != 0 ? 1 : 0;
  const std::int64_t monitor = NumberOf(record->CampoA);
  if (monitor == 0) TmrMonitor_Timer();
  if (monitor >= 1 && monitor <= 3) PctBoton_Click(static_cast<int>(6 + monitor));
}

void Form1::GuardarEstadoPantalla() {
  RegistroMixto record;
  record.CampoA = Short(CboMinutos.TagNumber());
  record.CampoB = Short(PctBoton[14].BorderStyle);
  record.Numero1 = Short(PctBoton[7].TagNumber());
  record.Numero2 = Short(PctBoton[8].TagNumber());
  record.Importe = Money::FromUnits(std::clamp(PctBoton[9].TagNumber(), -kMostUnits, kMostUnits));
  record.Marca = PctBoton[10].BorderStyle == 1;
  WriteDat(platform_.disk, kEstado, record);
}

void Form1::CargarDatosCall() {
  const Register<RegistroMixto> dat(platform_.disk, kDat, OpenMode::kRead);
  if (!dat) return;
  RegistrosDePiezas pieces;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const auto number = kPrimerRegistroDePiezas + static_cast<std::int64_t>(i);
    pieces[i] = dat.Read(number).PassOver().value_or(RegistroMixto{});
  }
  DatosCall = UnirPiezas(pieces);
}

void Form1::CargarMarcas() {
  const std::optional<RegistroMixto> record = ReadDat(platform_.disk, kMarcas);
  if (!record) return;
  if (record->Marca) CambiarModoFicha();
  if (record->Numero1 == 1) ImgPanico.Visible = true;
  ImgFondo.Tag = Digits(record->Numero2);
}

void Form1::GuardarMarcas() {
  RegistroMixto record;
  record.Marca = TxtBarCode.Visible;
  record.Numero1 = ImgPanico.Visible ? 1 : 0;
  record.Numero2 = Short(ImgFondo.TagNumber());
  record.Importe = Money::FromUnits(ImgIndicador[4].Visible ? 1 : 0);
  WriteDat(platform_.disk, kMarcas, record);
}

}  // namespace vintoral
