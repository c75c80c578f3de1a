#include "station/form1/Correo.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/FileRights.h"
#include "platform/PosixDisk.h"
#include "station/form1/Archivos.h"
#include "support/FaultyDisk.h"
#include "support/MemoryDisk.h"
#include "support/TempFolder.h"

namespace vintoral {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST(AjustesCorreo, AreThoseOfTheFile) {
  const AjustesCorreo settings = AjustesCorreoDe(
      "Servidor = smtp.casa.example\r\nPuerto=587\n  De = puerta@casa.example  \r\n"
      "AUTENTICACION = NO\r\nUsuario = puerta\r\nClave1 = uno\r\nClave2 = dos\r\nTLS = StartTLS\r\n");
  EXPECT_EQ(settings.servidor, "smtp.casa.example"_w);
  EXPECT_EQ(settings.puerto, 587);
  EXPECT_EQ(settings.de, "puerta@casa.example"_w);
  EXPECT_FALSE(settings.autenticacion);
  EXPECT_EQ(settings.usuario, "puerta"_w);
  EXPECT_EQ(settings.clave, "uno-dos"_w);
  EXPECT_TRUE(settings.tls);
  EXPECT_TRUE(settings.starttls);
}

TEST(AjustesCorreo, WhatTheFileLeavesOutIsAsItIsMade) {
  const AjustesCorreo settings = AjustesCorreoDe("Servidor = casa\r\n");
  EXPECT_EQ(settings.servidor, "casa"_w);
  EXPECT_EQ(settings.puerto, 26);
  EXPECT_EQ(settings.de, "alertas@vintoral.example"_w);
  EXPECT_TRUE(settings.autenticacion);
  EXPECT_EQ(settings.usuario, "alertas@vintoral.example"_w);
  EXPECT_EQ(settings.clave, ""_w);
  EXPECT_FALSE(settings.tls);
  EXPECT_FALSE(settings.starttls);
}

TEST(AjustesCorreo, APartOfThePasswordAloneIsAllOfIt) {
  EXPECT_EQ(AjustesCorreoDe("Clave1 = entera").clave, "entera"_w);
  EXPECT_EQ(AjustesCorreoDe("Clave2 = entera").clave, "entera"_w);
  EXPECT_EQ(AjustesCorreoDe("Clave1 = a=b;c\nClave2 = d-e").clave, "a=b;c-d-e"_w);
  EXPECT_EQ(AjustesCorreoDe("Clave1 = contrase\xC3\xB1"
                            "a")
                .clave,
            "contraseña"_w);
}

TEST(AjustesCorreo, APortThatIsNoNumberIsNone) {
  EXPECT_EQ(AjustesCorreoDe("Puerto = ").puerto, 0);
  EXPECT_EQ(AjustesCorreoDe("Puerto = veinte").puerto, 0);
  EXPECT_EQ(AjustesCorreoDe("Puerto = 25x").puerto, 0);
  EXPECT_EQ(AjustesCorreoDe("Puerto = 99999999999").puerto, 0);
  EXPECT_EQ(AjustesCorreoDe("Puerto = 65536").puerto, 65536);
  EXPECT_EQ(AjustesCorreoDe("Puerto = -1").puerto, -1);
}

TEST(AjustesCorreo, OnlyNoKeepsThePasswordInClear) {
  EXPECT_FALSE(AjustesCorreoDe("TLS = No").tls);
  EXPECT_TRUE(AjustesCorreoDe("TLS =").tls);
  for (const char* const word : {"si", "s\xED", "s\xC3\xAD", "ssl", "1", "n o"}) {
    const AjustesCorreo settings = AjustesCorreoDe(std::string("TLS = ") + word);
    EXPECT_TRUE(settings.tls) << word;
    EXPECT_FALSE(settings.starttls) << word;
  }
}

TEST(Correo, TheFileIsMadeOnceWithItsRemarks) {
  test::MemoryDisk disk;
  disk.Put("Objetos\\otro", "");
  ASSERT_FALSE(disk.Exists(archivo::kCorreo));
  CrearCorreo(disk);
  EXPECT_THAT(disk.Get(archivo::kCorreo), StartsWith("; "));
  EXPECT_THAT(disk.Get(archivo::kCorreo), HasSubstr("\r\nPuerto = 26\r\n"));
  EXPECT_THAT(disk.Get(archivo::kCorreo), HasSubstr("\r\nAutenticacion = si\r\n"));
  EXPECT_THAT(disk.Get(archivo::kCorreo), HasSubstr("\r\nTLS = no\r\n"));
  disk.Put(archivo::kCorreo, "Puerto = 2525");
  CrearCorreo(disk);
  EXPECT_EQ(LeerCorreo(disk).puerto, 2525);
  EXPECT_EQ(disk.Get(archivo::kCorreo), "Puerto = 2525");
}

TEST(Correo, AFileThatWasTakenAwayIsMadeAnew) {
  test::MemoryDisk disk;
  disk.Put("Objetos\\otro", "");
  EXPECT_EQ(LeerCorreo(disk).puerto, 26);
  EXPECT_TRUE(disk.Exists(archivo::kCorreo));
}

TEST(Correo, ADiskThatFailsLeavesTheFirstValues) {
  test::MemoryDisk disk;
  test::FaultyDisk faulty(disk);
  disk.Put(archivo::kCorreo, "Puerto = 2525");
  faulty.Set().failRead = 1;
  testing::internal::CaptureStderr();
  EXPECT_EQ(LeerCorreo(faulty).puerto, 26);
  EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("Correo.INI"));
}

TEST(Correo, IsMadeForItsOwnerAlone) {
  const test::TempFolder folder;
  PosixDisk disk(folder.Path());
  const mode_t mask = umask(0);
  ASSERT_TRUE(disk.CreateFolder("Objetos"));
  CrearCorreo(disk);
  ASSERT_TRUE(disk.CreateNew("Objetos\\Otro.INI", ""));
  umask(mask);
  const auto rights = [&](const char* name) {
    struct stat status {};
    EXPECT_EQ(stat(folder.Path(name).c_str(), &status), 0) << name;
    return status.st_mode & 07777;
  };
  EXPECT_EQ(rights("Objetos/Correo.INI"), 0600u);
  EXPECT_EQ(rights("Objetos/Otro.INI"), 0666u);
  EXPECT_EQ(RightsOf("/a/Correo.INI"), 0600u);
  EXPECT_EQ(RightsOf("/Correo.INI/b"), 0666u);
}

}  // namespace
}  // namespace vintoral
