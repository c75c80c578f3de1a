// A history of very many exits: a thousand vehicles a day, from 1999 on.
#pragma once

#include <array>
#include <cstdint>
#include <fstream>
#include <string>

#include "common/Moment.h"
#include "common/Numbers.h"
#include "records/RegistroFicha.h"

namespace vintoral::bench {

inline constexpr std::int64_t kExitsOfADay = 1000;
/// Row 1 is the blank one.
inline constexpr std::int64_t kFirstRow = 2;
/// So many of each history's rows have this remark, at even distances.
inline constexpr std::int64_t kRemarked = 100;
inline constexpr const char* kRemark = "CON NOVEDADES";

inline Moment ExitOf(std::int64_t row) {
  constexpr std::int64_t kDay = 86'400'000;
  return ParseDateTime("01/01/1999 00:00:00")->Plus((row - kFirstRow) * (kDay / kExitsOfADay));
}

inline RegistroFicha Gone(std::int64_t row) {
  constexpr std::array kNames = {"JUAN", "ANA MARIA", "PEDRO", "LUISA FERNANDA"};
  constexpr std::array kCategories = {"AUTOMOVIL", "MOTOCICLETA", "CAMION"};
  constexpr std::int64_t kStay = 90 * 60'000;
  const auto pick = static_cast<std::size_t>(row);
  RegistroFicha ficha;
  ficha.EnUso = true;
  ficha.MarcaEntrada = StampOf(ExitOf(row).Plus(-kStay));
  ficha.MarcaSalida = StampOf(ExitOf(row));
  ficha.NumeroFicha = Digits(row * 7 % 999 + 1, 4);
  ficha.Placa = "ABC"_w + Digits(row % 1000, 3);
  ficha.Nombre = kNames[pick % kNames.size()];
  ficha.Apellido = kNames[pick / 4 % kNames.size()];
  ficha.Telefono = "3001234567";
  ficha.Observacion = "SIN NOVEDAD";
  ficha.Categoria = kCategories[pick % kCategories.size()];
  ficha.PorteriaEntrada = ficha.PorteriaSalida = "01";
  ficha.Posicion = static_cast<std::int32_t>(row);
  ficha.ValorCobrado = Money::FromUnits(1500);
  return ficha;
}

/// Row `row` of a history of `exits`; those with the remark are all of one name and category.
inline RegistroFicha GoneOf(std::int64_t row, std::int64_t exits) {
  RegistroFicha ficha = Gone(row);
  if ((row - kFirstRow) % (exits / kRemarked) == 0) {
    ficha.Nombre = "ANA MARIA";
    ficha.Categoria = "AUTOMOVIL";
    ficha.Observacion = kRemark;
  }
  return ficha;
}

inline void WriteHistory(const std::string& path, std::int64_t exits) {
  std::ofstream history(path, std::ios::binary);
  const auto put = [&](const RegistroFicha& ficha) {
    const auto bytes = ficha.Encode();
    history.write(bytes.data(), bytes.size());
  };
  put({});
  for (std::int64_t row = kFirstRow; row < kFirstRow + exits; ++row)
    put(GoneOf(row, exits));
}

}  // namespace vintoral::bench
