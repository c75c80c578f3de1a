#include "reports/ArchivoInforme.h"

#include <gtest/gtest.h>

#include "support/FaultyDisk.h"
#include "support/MemoryDisk.h"

namespace vintoral {
namespace {

using test::FaultyDisk;
using test::MemoryDisk;

constexpr const char* kPagina = "Recursos\\Vintoral.HTML";

TEST(ArchivoInforme, TakesThePlaceOfTheOneBefore) {
  MemoryDisk disk;
  disk.Put(kPagina, "a longer report of before");
  disk.SetReadOnly(kPagina);
  ArchivoInforme file(disk, kPagina);
  ASSERT_TRUE(file.Abierto());
  EXPECT_TRUE(file.Escribir("uno"));
  EXPECT_TRUE(file.Recibir()("dos"));
  EXPECT_EQ(disk.Get(kPagina), "unodos");
}

TEST(ArchivoInforme, WhoeverShowsTheOneBeforeKeepsIt) {
  MemoryDisk disk;
  disk.Put(kPagina, "before");
  const Result<std::unique_ptr<DiskFile>> shown = disk.Open(kPagina, OpenMode::kRead);
  ArchivoInforme file(disk, kPagina);
  EXPECT_TRUE(file.Escribir("now"));
  EXPECT_EQ((*shown)->Length(), 6U);
}

TEST(ArchivoInforme, IsMadeWhereThereIsNone) {
  MemoryDisk disk;
  disk.Put("Recursos\\other", "");
  ASSERT_EQ(disk.Get(kPagina), "(missing)");
  const ArchivoInforme file(disk, kPagina);
  EXPECT_TRUE(file.Abierto());
  EXPECT_EQ(disk.Get(kPagina), "");
}

TEST(ArchivoInforme, WithoutItsFolderItCannotBeMade) {
  MemoryDisk disk;
  ArchivoInforme file(disk, kPagina);
  EXPECT_FALSE(file.Abierto());
  EXPECT_EQ(file.Escribir("uno").Error(), file.Abierto().Error());
}

TEST(ArchivoInforme, AFolderThatIsProtected) {
  MemoryDisk memory;
  memory.Put("Recursos\\other", "");
  FaultyDisk disk(memory);
  disk.Set().openReadOnly = true;
  EXPECT_EQ(ArchivoInforme(disk, kPagina).Abierto().Error(), EACCES);
}

TEST(ArchivoInforme, AFullDiskIsTold) {
  MemoryDisk memory;
  memory.Put("Recursos\\other", "");
  FaultyDisk disk(memory);
  ArchivoInforme file(disk, kPagina);
  disk.Set().failWrite = 1;
  EXPECT_EQ(file.Escribir("uno").Error(), ENOSPC);
}

}  // namespace
}  // namespace vintoral
