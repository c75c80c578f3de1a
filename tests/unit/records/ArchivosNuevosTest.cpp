#include "records/ArchivosNuevos.h"

#include <gtest/gtest.h>

#include "support/Bytes.h"

namespace vintoral {
namespace {

using test::Blanks;
using test::Hex;
using test::Zeros;

std::string RecordOf(const String& file, std::size_t number) {
  return file.Bytes().substr((number - 1) * 188, 188);
}

TEST(ArchivosNuevos, ActHas1001Records) {
  EXPECT_EQ(ActNuevo().Size(), 188188u);
}

TEST(ArchivosNuevos, SlotsAreBlankAndKnowTheirNumber) {
  const String act = ActNuevo();
  const std::string before = Zeros(2) + Blanks(168);
  EXPECT_EQ(RecordOf(act, 1), before + Hex("01 00 00 00") + Zeros(14));
  EXPECT_EQ(RecordOf(act, 258), before + Hex("02 01 00 00") + Zeros(14));
  EXPECT_EQ(RecordOf(act, 1000), before + Hex("E8 03 00 00") + Zeros(14));
}

TEST(ArchivosNuevos, ClosingRecordCarriesTheLastSlotsNumber) {
  EXPECT_EQ(RecordOf(ActNuevo(), 1001),
            Zeros(2) + "1000" + Blanks(160) + "5 " + Blanks(2) + Hex("E8 03 00 00") + Zeros(14));
}

TEST(ArchivosNuevos, HistoryAndFirstVisitsBeginWithABlankRecord) {
  EXPECT_EQ(HstNuevo().Bytes(), Zeros(2) + Blanks(168) + Zeros(18));
  EXPECT_EQ(NsrNuevo(), HstNuevo());
}

TEST(ArchivosNuevos, NobodyHasACode) {
  EXPECT_EQ(CdbNuevo().Bytes(), Blanks(54'000));
}

}  // namespace
}  // namespace vintoral
