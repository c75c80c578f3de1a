// The file of a report in the making: whoever opens it sees the whole of the last one until this one is
// whole.
#pragma once

#include <memory>
#include <string_view>

#include "platform/Disk.h"
#include "reports/Escritor.h"
#include "reports/InformeFichas.h"

namespace vintoral {

class Form1;

class ArchivoInforme {
 public:
  /// Begins `ruta`, one of archivo, beside what stands there. Where it can't be made the operator is told.
  ArchivoInforme(Form1& form, std::string_view ruta);
  ArchivoInforme(const ArchivoInforme&) = delete;
  ArchivoInforme& operator=(const ArchivoInforme&) = delete;
  /// Takes away what was not published.
  ~ArchivoInforme();

  bool Abierto() const { return archivo_ != nullptr; }
  /// Where its pieces go, one behind the other. Not used beyond this.
  vintoral::Destino Destino();
  /// Puts the file in its place when it was `escrito`; else, and when that fails, the operator is told,
  /// unless he has ended it himself.
  bool Publicar(const Outcome& escrito);

 private:
  void Avisar() const;
  Outcome Reemplazar();

  Form1& form_;
  String ruta_, nueva_;
  std::unique_ptr<DiskFile> archivo_;
  std::uint64_t fin_ = 0;
};

/// The report goes where it is read: its page to the browser, its slip to the printer.
void EntregarInforme(Form1& form, ArchivoInforme& pagina, InformeHecho informe);

}  // namespace vintoral
