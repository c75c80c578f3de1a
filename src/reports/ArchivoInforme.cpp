#include "reports/ArchivoInforme.h"

#include "station/form1/Archivos.h"
#include "station/form1/AvisoImpresion.h"
#include "station/form1/Form1.h"

namespace vintoral {

ArchivoInforme::ArchivoInforme(Form1& form, std::string_view ruta)
    : form_(form), ruta_(ruta), nueva_(ruta_ + ".nuevo"_w) {
  Disk& disk = form_.Devices().disk;
  // What an earlier run left when it was killed would stand behind a shorter page.
  if (disk.Exists(nueva_)) disk.Remove(nueva_).PassOver();
  disk.ClearReadOnly(ruta_).PassOver();
  Result<std::unique_ptr<DiskFile>> opened = disk.Open(nueva_, OpenMode::kCreate);
  if (opened) {
    archivo_ = opened.Take();
  } else {
    opened.Why().PassOver();
    Avisar();
  }
}

ArchivoInforme::~ArchivoInforme() {
  archivo_.reset();
  Disk& disk = form_.Devices().disk;
  if (disk.Exists(nueva_)) disk.Remove(nueva_).PassOver();
}

Destino ArchivoInforme::Destino() {
  return [this](std::string_view pieza) {
    Outcome written = archivo_->WriteAt(fin_, pieza);
    fin_ += pieza.size();
    return written;
  };
}

Outcome ArchivoInforme::Reemplazar() {
  Disk& disk = form_.Devices().disk;
  archivo_.reset();
  if (disk.Exists(ruta_)) {
    if (Outcome removed = disk.Remove(ruta_); !removed) return removed;
  }
  return disk.Move(nueva_, ruta_);
}

bool ArchivoInforme::Publicar(const Outcome& escrito) {
  if (EsInterrumpido(escrito)) return false;
  const Outcome published = escrito ? Reemplazar() : escrito;
  published.PassOver();
  if (!published) Avisar();
  return static_cast<bool>(published);
}

void ArchivoInforme::Avisar() const {
  AvisarImposibleImprimir(form_.Devices(), ruta_);
}

void EntregarInforme(Form1& form, ArchivoInforme& pagina, InformeHecho informe) {
  const Platform& devices = form.Devices();
  const bool published = pagina.Publicar(informe.pagina);
  // The money of a shift is counted on paper, whatever has become of the page.
  if (informe.tira) devices.printer.EndDoc(std::move(*informe.tira));
  if (published) devices.system.Launch("Explorer.exe "_w + String(archivo::kPagina));
}

}  // namespace vintoral
