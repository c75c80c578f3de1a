// What a new installation charges until its operator writes prices of his own.
#include <array>
#include <span>

#include "tariffs/Tablas.h"

namespace vintoral {
namespace {

// A category to a row, after the blank line that ends the one before.
// clang-format off
constexpr std::array<std::string_view, 66> kTarifas = {
    " ", " AUTOMOVIL", " 1M = 100*", " 1H = 6000", " 2H = 12000", " 3H = 18000", " 4H = 24000",
        " 5H = 30000**", " 23H = 30000**", " 1D = 30000*",
    " ", " MOTOCICLETA", " 1M = 0**", " 2M = 0", " 17M = 500", " 32M = 1000", " 47M = 1500", " 59M = 1500",
        " 1H = 2000", " 2H = 4000", " 3H = 6000", " 4H = 8000", " 5H = 10000**", " 23H = 10000**",
        " 1D = 10000*",
    " ", " BICICLETA", " 1M = 10**", " 1H = 600", " 2H = 1200", " 3H = 1800", " 4H = 2400", " 5H = 3000**",
        " 23H = 3000**", " 1D = 3000*",
    " ", " COMPRA MES AUTO", " 0M = 300000",
    " ", " COMPRA MES MOTO", " 0M = 100000",
    " ", " COMPRA MES BICI", " 0M = 30000",
    " ", " ACCESO MES AUTO",
    " ", " ACCESO MES MOTO",
    " ", " ACCESO MES BICI",
    " ", " LAVADO AUTOMOVIL", " 0M = 50000",
    " ", " VISITANTE",
    " ", " EMPLEADO",
    " ", " RESIDENTE",
    " ", " ENTREGA DOMICILIO",
    " ", " SERVICIO TECNICO",
    " ", " AGENTE INMOBILIARIO",
    " ",
};

constexpr std::array<std::string_view, 11> kExtras = {
    " ", " MINUTO CELULAR = 200", " FOTOCOPIA = 100", " TARJETA PREPAGO = 10000", " CASCO MOTO = 120000",
        " ALARMA MOTO = 50000", " AMBIENTADOR LIQ = 20000", " CERA BRILLANTE = 50000",
        " BATERIA AUTO = 350000", " BOTELLA AGUA = 5000", " CAFE COLOMBIANO = 5000",
};

constexpr std::array<std::string_view, 8> kPrepago = {
    " ", " MINUTOS CARGA (Max. 1439) = VALOR",
    " ", " 120 = 1000", " 180 = 2000", " 240 = 3000", " 300 = 4000", " 360 = 5000",
};
// clang-format on

std::vector<String> Lines(std::span<const std::string_view> texts) {
  return {texts.begin(), texts.end()};
}

}  // namespace

std::vector<String> TarifasPredeterminadas() {
  return Lines(kTarifas);
}

std::vector<String> ExtrasPredeterminados() {
  return Lines(kExtras);
}

std::vector<String> PrepagoPredeterminado() {
  return Lines(kPrepago);
}

}  // namespace vintoral
