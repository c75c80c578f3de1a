#include <gtest/gtest.h>

#include "tariffs/Tablas.h"

namespace vintoral {
namespace {

std::vector<std::string> Texts(const std::vector<String>& lineas) {
  std::vector<std::string> texts;
  for (const String& linea : lineas)
    texts.push_back(linea.Bytes());
  return texts;
}

TEST(TarifasPredeterminadas, AreTheLinesOfANewInstallation) {
  const std::vector<std::string> expected = {
      " ",                     // 1
      " AUTOMOVIL",            // 2
      " 1M = 100*",            // 3
      " 1H = 6000",            // 4
      " 2H = 12000",           // 5
      " 3H = 18000",           // 6
      " 4H = 24000",           // 7
      " 5H = 30000**",         // 8
      " 23H = 30000**",        // 9
      " 1D = 30000*",          // 10
      " ",                     // 11
      " MOTOCICLETA",          // 12
      " 1M = 0**",             // 13
      " 2M = 0",               // 14
      " 17M = 500",            // 15
      " 32M = 1000",           // 16
      " 47M = 1500",           // 17
      " 59M = 1500",           // 18
      " 1H = 2000",            // 19
      " 2H = 4000",            // 20
      " 3H = 6000",            // 21
      " 4H = 8000",            // 22
      " 5H = 10000**",         // 23
      " 23H = 10000**",        // 24
      " 1D = 10000*",          // 25
      " ",                     // 26
      " BICICLETA",            // 27
      " 1M = 10**",            // 28
      " 1H = 600",             // 29
      " 2H = 1200",            // 30
      " 3H = 1800",            // 31
      " 4H = 2400",            // 32
      " 5H = 3000**",          // 33
      " 23H = 3000**",         // 34
      " 1D = 3000*",           // 35
      " ",                     // 36
      " COMPRA MES AUTO",      // 37
      " 0M = 300000",          // 38
      " ",                     // 39
      " COMPRA MES MOTO",      // 40
      " 0M = 100000",          // 41
      " ",                     // 42
      " COMPRA MES BICI",      // 43
      " 0M = 30000",           // 44
      " ",                     // 45
      " ACCESO MES AUTO",      // 46
      " ",                     // 47
      " ACCESO MES MOTO",      // 48
      " ",                     // 49
      " ACCESO MES BICI",      // 50
      " ",                     // 51
      " LAVADO AUTOMOVIL",     // 52
      " 0M = 50000",           // 53
      " ",                     // 54
      " VISITANTE",            // 55
      " ",                     // 56
      " EMPLEADO",             // 57
      " ",                     // 58
      " RESIDENTE",            // 59
      " ",                     // 60
      " ENTREGA DOMICILIO",    // 61
      " ",                     // 62
      " SERVICIO TECNICO",     // 63
      " ",                     // 64
      " AGENTE INMOBILIARIO",  // 65
      " ",                     // 66
  };
  EXPECT_EQ(Texts(TarifasPredeterminadas()), expected);
}

TEST(TarifasPredeterminadas, Fill6600Bytes) {
  EXPECT_EQ(TarifasPredeterminadas().size(), 66U);
  EXPECT_EQ(CodificarLineas(TarifasPredeterminadas()).Size(), 6600U);
}

TEST(TarifasPredeterminadas, StandAtTheirPlacesInTheFile) {
  const std::string bytes = CodificarLineas(TarifasPredeterminadas()).Bytes();
  EXPECT_EQ(bytes.substr(0, 100), std::string(100, ' '));
  EXPECT_EQ(bytes.substr(100, 100), " AUTOMOVIL" + std::string(90, ' '));
  EXPECT_EQ(bytes.substr(1200, 100), " 1M = 0**" + std::string(91, ' '));
  EXPECT_EQ(bytes.substr(6400, 100), " AGENTE INMOBILIARIO" + std::string(80, ' '));
  EXPECT_EQ(bytes.substr(6500), std::string(100, ' '));
}

TEST(ExtrasPredeterminados, AreTheLinesOfANewInstallation) {
  const std::vector<std::string> expected = {
      " ",                         // 1
      " MINUTO CELULAR = 200",     // 2
      " FOTOCOPIA = 100",          // 3
      " TARJETA PREPAGO = 10000",  // 4
      " CASCO MOTO = 120000",      // 5
      " ALARMA MOTO = 50000",      // 6
      " AMBIENTADOR LIQ = 20000",  // 7
      " CERA BRILLANTE = 50000",   // 8
      " BATERIA AUTO = 350000",    // 9
      " BOTELLA AGUA = 5000",      // 10
      " CAFE COLOMBIANO = 5000",   // 11
  };
  EXPECT_EQ(Texts(ExtrasPredeterminados()), expected);
}

TEST(ExtrasPredeterminados, Fill1100Bytes) {
  EXPECT_EQ(ExtrasPredeterminados().size(), 11U);
  EXPECT_EQ(CodificarLineas(ExtrasPredeterminados()).Size(), 1100U);
}

TEST(PrepagoPredeterminado, AreTheLinesOfANewInstallation) {
  const std::vector<std::string> expected = {
      " ",                                   // 1
      " MINUTOS CARGA (Max. 1439) = VALOR",  // 2
      " ",                                   // 3
      " 120 = 1000",                         // 4
      " 180 = 2000",                         // 5
      " 240 = 3000",                         // 6
      " 300 = 4000",                         // 7
      " 360 = 5000",                         // 8
  };
  EXPECT_EQ(Texts(PrepagoPredeterminado()), expected);
}

TEST(PrepagoPredeterminado, Fill800Bytes) {
  EXPECT_EQ(PrepagoPredeterminado().size(), 8U);
  EXPECT_EQ(CodificarLineas(PrepagoPredeterminado()).Size(), 800U);
}

}  // namespace
}  // namespace vintoral
