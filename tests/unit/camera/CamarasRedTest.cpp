#include "camera/DSPreview/CamarasRed.h"

#include <gtest/gtest.h>

#include "support/MemoryDisk.h"

namespace vintoral {
namespace {

TEST(CamarasDe, AreThoseOfTheLinesInTheirOrder) {
  int bad = -1;
  const auto cameras = CamarasDe(
      "; remark = rtsp://not/this\r\nEntrada = rtsp://u:p@10.0.0.2/v?a=1\r\n\r\n Salida=HTTP://10.0.0.3/mjpg "
      "\n",
      &bad);
  ASSERT_EQ(cameras.size(), 2u);
  EXPECT_EQ(cameras[0].name, "Entrada"_w);
  EXPECT_EQ(cameras[0].address, "rtsp://u:p@10.0.0.2/v?a=1"_w);
  EXPECT_EQ(cameras[1].name, "Salida"_w);
  EXPECT_EQ(cameras[1].address, "HTTP://10.0.0.3/mjpg"_w);
  EXPECT_EQ(bad, 0);
}

TEST(CamarasDe, LinesThatNameNoneAreCounted) {
  int bad = -1;
  EXPECT_TRUE(CamarasDe("Entrada\nX = ftp://a\n = rtsp://a\nY = rtsp://\nZ = "
                        "file:///etc/passwd\nrtsp://u:p@h/a = rtsp://h/b\n",
                        &bad)
                  .empty());
  EXPECT_EQ(bad, 6);
}

TEST(CamarasDe, NamesMayBeUtf8) {
  const auto cameras = CamarasDe("C\xC3\xA1mara = https://a/b");
  ASSERT_EQ(cameras.size(), 1u);
  EXPECT_EQ(cameras[0].name, "Cámara"_w);
}

TEST(CamarasRed, TheFileIsMadeOnceWithRemarksAlone) {
  test::MemoryDisk disk;
  disk.Put("Objetos\\otro", "");
  EXPECT_TRUE(LeerCamarasRed(disk).empty());
  ASSERT_FALSE(disk.Exists("Objetos\\Camaras.INI"));
  CrearCamarasRed(disk);
  ASSERT_TRUE(disk.Exists("Objetos\\Camaras.INI"));
  EXPECT_TRUE(disk.Get("Objetos\\Camaras.INI").starts_with("; "));
  int bad = -1;
  EXPECT_TRUE(CamarasDe(disk.Get("Objetos\\Camaras.INI"), &bad).empty());
  EXPECT_EQ(bad, 0);
  disk.Put("Objetos\\Camaras.INI", "A = http://b");
  CrearCamarasRed(disk);
  EXPECT_EQ(LeerCamarasRed(disk).size(), 1u);
}

}  // namespace
}  // namespace vintoral
