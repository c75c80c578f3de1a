// A gate in barcode mode, with what its registers hold.
#pragma once

#include <string>
#include <string_view>

#include "common/Numbers.h"
#include "records/RegistroCodigo.h"
#include "records/RegistroPase.h"
#include "support/MemoryStation.h"
#include "support/Registers.h"

namespace vintoral::test {

/// Twelve characters, as a gate draws them.
inline constexpr std::string_view kCodigo = "A1B2C3D4E5F6";
inline constexpr std::string_view kOtro = "ZZZZ99990000";

inline RegistroPase Pase(int mode, int left, std::string_view date = {}, std::string_view code = kCodigo) {
  RegistroPase pass;
  pass.CodigoPase = code;
  pass.PlacaPase = "ABC123";
  pass.ModoPase = static_cast<std::uint8_t>(mode);
  pass.FechaPase = date;
  pass.RestantesPase = static_cast<std::int16_t>(left);
  return pass;
}

class CodigosTest : public testing::Test {
 protected:
  CodigosTest() {
    station_.StartConnected();
    form_.ActivarTiquetes();
    form_.CambiarModoFicha();
    station_.Events.Take();
  }

  void PutPass(std::size_t number, const RegistroPase& pass) { PutRecord(station_.Disk, kCfr, number, pass); }
  RegistroPase PassAt(std::size_t number) const {
    return RecordOf<RegistroPase>(station_.Disk, kCfr, number);
  }
  std::size_t Passes() const { return CountOf<RegistroPase>(station_.Disk, kCfr); }
  std::string CodeAt(std::size_t number) const {
    return RecordOf<RegistroCodigo>(station_.Disk, kCdb, number).CodigoBarras.Trimmed().Bytes();
  }
  void PutCode(std::size_t number, std::string_view code, std::string_view ficha) {
    RegistroCodigo record;
    record.CodigoBarras = code;
    record.FichaCodigo = ficha;
    PutRecord(station_.Disk, kCdb, number, record);
  }
  /// A slot in use, as another gate leaves it.
  void PutInside(std::size_t number, std::string_view plate = "OTRA") {
    RegistroFicha ficha;
    ficha.EnUso = true;
    ficha.MarcaEntrada = "13:00  (20/11/2026)";
    ficha.MarcaSalida = "??";
    ficha.NumeroFicha = Digits(static_cast<std::int64_t>(number), 4);
    ficha.Placa = plate;
    ficha.Categoria = "AUTOMOVIL";
    ficha.PorteriaEntrada = "02";
    ficha.PorteriaSalida = "??";
    ficha.Posicion = static_cast<std::int32_t>(number);
    station_.PutSlot(number, ficha);
  }
  /// A reader's burst: `gap` milliseconds before each character but the first.
  void Scan(std::string_view code, std::int64_t gap = 3) {
    for (std::size_t i = 0; i < code.size(); ++i) {
      if (i > 0) station_.Pass(gap);
      station_.Hands.Character(code[i]);
    }
  }
  /// A new ticket as far as the question: the generator, the plate.
  void TypeTicket(std::string_view plate = "abc123") {
    station_.Hands.Key(keys::kHome, 0);
    station_.TypeAndEnter(plate);
  }
  void Save(Answer answer = Answer::kYes) {
    station_.Answers.push_back(answer);
    station_.Hands.Key(keys::kInsert, 0);
  }
  /// Whoever is on display leaves.
  void Retire() {
    station_.Answers.push_back(Answer::kYes);
    station_.Hands.Key(keys::kDelete, 0);
  }
  bool Idle() const { return !form_.FichaEnCurso() && form_.TxtBarCode.Text().Empty(); }

  MemoryStation station_;
  Form1& form_ = station_.Form;
};

}  // namespace vintoral::test
