// The file of a report, made anew in place of the one before.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "common/Outcome.h"
#include "platform/Disk.h"
#include "reports/Escritor.h"

namespace vintoral {

class ArchivoInforme {
 public:
  /// What stands there goes, read-only or not. Whoever shows the report before goes on showing it.
  ArchivoInforme(Disk& disk, std::string_view ruta);
  ArchivoInforme(const ArchivoInforme&) = delete;
  ArchivoInforme& operator=(const ArchivoInforme&) = delete;

  /// Why it could not be made.
  const Outcome& Abierto() const { return abierto_; }
  Outcome Escribir(std::string_view pieza);
  /// For a writer that does not outlive the file.
  Destino Recibir() {
    return [this](std::string_view pieza) { return Escribir(pieza); };
  }

 private:
  Outcome abierto_;
  std::unique_ptr<DiskFile> archivo_;
  std::uint64_t largo_ = 0;
};

}  // namespace vintoral
