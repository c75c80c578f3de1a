#include "records/Registro.h"

#include <gtest/gtest.h>

#include "records/ArchivosNuevos.h"
#include "records/RegistroFicha.h"
#include "support/FaultyDisk.h"
#include "support/MemoryDisk.h"

namespace vintoral {
namespace {

using test::FaultyDisk;
using test::MemoryDisk;
using Fichas = Registro<RegistroFicha>;

TEST(Registro, WritesOneSlotInPlace) {
  MemoryDisk disk;
  disk.Put("Multimedia\\Vintoral.ACT", ActNuevo());
  Fichas act(disk, "Multimedia\\Vintoral.ACT", OpenMode::kReadWrite);
  ASSERT_TRUE(act);
  RegistroFicha ficha = act.Read(7).value();
  EXPECT_EQ(ficha.Posicion, 7);
  ficha.Placa = "ABC123";
  EXPECT_TRUE(act.Write(7, ficha, true));
  EXPECT_EQ(act.Count(), 1001);
  EXPECT_EQ(disk.Get("Multimedia\\Vintoral.ACT").substr(6 * 188 + 46, 20), "ABC123              ");
}

}  // namespace
}  // namespace vintoral
