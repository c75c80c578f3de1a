#include "reports/Escritor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "unit/reports/Informes.h"

namespace vintoral {
namespace {

using test::En;
using testing::ElementsAre;

TEST(Escritor, WritesLinesWithTheirEnds) {
  std::string text;
  Escritor writer(En(text));
  writer.Escribir("uno");
  writer.Linea(" dos");
  writer.Linea();
  EXPECT_EQ(text, "");  // it waits for more
  EXPECT_TRUE(writer.Terminar());
  EXPECT_EQ(text, "uno dos\r\n\r\n");
}

TEST(Escritor, TextStaysVisibleOnAPage) {
  std::string text;
  Escritor writer(En(text));
  writer.EscribirVisible("<B>&\"a\"");
  writer.EscribirVisible("plain, \xD1 and 'so'");
  writer.EscribirVisible("");
  writer.EscribirVisible("&&");
  EXPECT_TRUE(writer.Terminar());
  EXPECT_EQ(text, "&lt;B&gt;&amp;&quot;a&quot;plain, \xD1 and 'so'&amp;&amp;");
}

TEST(Escritor, GivesPiecesAndKeepsNoMoreThanOne) {
  std::vector<std::size_t> pieces;
  Escritor writer([&](std::string_view piece) {
    pieces.push_back(piece.size());
    return Outcome::Done();
  });
  const std::string kilobyte(1024, 'x');
  for (int i = 0; i < 130; ++i)
    writer.Escribir(kilobyte);
  EXPECT_THAT(pieces, ElementsAre(65536, 65536));
  EXPECT_TRUE(writer.Terminar());
  EXPECT_THAT(pieces, ElementsAre(65536, 65536, 2048));
}

TEST(Escritor, NothingIsWrittenWithoutAText) {
  int calls = 0;
  Escritor writer([&](std::string_view) {
    ++calls;
    return Outcome::Done();
  });
  writer.Escribir({});
  writer.EscribirVisible({});
  EXPECT_TRUE(writer.Terminar());
  EXPECT_EQ(calls, 0);
}

TEST(Escritor, BehindAFailureNothingIsGivenAnyMore) {
  int calls = 0;
  Escritor writer([&](std::string_view) {
    return ++calls == 2 ? Outcome::Failed("write", "a report", ENOSPC) : Outcome::Done();
  });
  const std::string piece(Escritor::kPieza, 'x');
  for (int i = 0; i < 4; ++i)
    writer.Escribir(piece);
  EXPECT_EQ(calls, 2);
  EXPECT_EQ(writer.Terminar().Error(), ENOSPC);
  EXPECT_EQ(calls, 2);
}

}  // namespace
}  // namespace vintoral
