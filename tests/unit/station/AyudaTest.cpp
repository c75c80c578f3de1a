#include "station/Ayuda.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace vintoral {
namespace {

std::vector<std::string> Lines() {
  const std::string text = TextoAyuda().ToUtf8();
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find("\r\n", at), text.size());
    lines.push_back(text.substr(at, end - at));
    at = end + 2;
  }
  return lines;
}

bool HasLine(const std::string& start, const std::string& end = "") {
  for (const std::string& line : Lines()) {
    if (line.starts_with(start) && line.ends_with(end)) return true;
  }
  return false;
}

TEST(Ayuda, EveryLineEndsWithCrLf) {
  const std::string text = TextoAyuda().Bytes();
  ASSERT_TRUE(text.ends_with("\r\n"));
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool alone = (text[i] == '\n' && (i == 0 || text[i - 1] != '\r')) ||
                       (text[i] == '\r' && (i + 1 == text.size() || text[i + 1] != '\n'));
    EXPECT_FALSE(alone) << "at " << i;
  }
}

TEST(Ayuda, TheTitleNamesProductAndVersion) {
  EXPECT_EQ(Lines().front(), "Vintoral 10.25");
}

TEST(Ayuda, TheSectionsStandInOrder) {
  const std::vector<std::string> lines = Lines();
  auto at = lines.begin();
  for (const char* head : {"ACERCA DE Vintoral", "ACERCA DE LAS TECLAS DE ACCESO DIRECTO",
                           "ACERCA DE LA CONEXIÓN DE PORTERÍAS", "SOLUCIÓN DE PROBLEMAS", "COMENTARIOS"}) {
    at = std::find(at, lines.end(), head);
    ASSERT_NE(at, lines.end()) << head;
  }
}

TEST(Ayuda, TheSystemIsToldInThreeLines) {
  const std::vector<std::string> lines = Lines();
  const auto head = std::find(lines.begin(), lines.end(), "ACERCA DE Vintoral");
  ASSERT_GT(lines.end() - head, 5);
  EXPECT_TRUE(head[1].empty());
  for (int i = 2; i <= 4; ++i)
    EXPECT_FALSE(head[i].empty()) << i;
  EXPECT_TRUE(head[5].empty());
}

TEST(Ayuda, NoCharacterIsLost) {
  // A character that Windows-1252 lacks would have become a question mark.
  EXPECT_EQ(TextoAyuda().Bytes().find('?'), std::string::npos);
  EXPECT_NE(TextoAyuda().Bytes().find("Retroceder P\xE1gina\r\n"), std::string::npos);
  EXPECT_NE(TextoAyuda().Bytes().find("PORTER\xCD"), std::string::npos);
}

TEST(Ayuda, EveryShortcutHasItsLine) {
  for (const char* key : {"ESC ",
                          "REPAG ",
                          "AVPAG ",
                          "INICIO ",
                          "IZQUIERDA ",
                          "DERECHA ",
                          "INSERT ",
                          "SUPR ",
                          "CTRL + 0 ... 9 ",
                          "CTRL + A ",
                          "CTRL + B ",
                          "CTRL + ALT + B ",
                          "CTRL + C ",
                          "CTRL + F ",
                          "CTRL + I ",
                          "CTRL + ALT + I ",
                          "CTRL + ALT + K ",
                          "CTRL + ALT + L ",
                          "CTRL + ALT + M ",
                          "CTRL + ALT + P ",
                          "CTRL + SHIFT + R ",
                          "CTRL + ALT + R ",
                          "CTRL + T ",
                          "CTRL + W ",
                          "SHIFT + ALT + W ",
                          "CTRL + ALT + W ",
                          "CTRL + F1 ",
                          "F1 ",
                          "F2 ",
                          "F3 ",
                          "F4 ",
                          "F5 ",
                          "F7 ",
                          "F8 ",
                          "F9 ",
                          "F10 ",
                          "F12 "})
    EXPECT_TRUE(HasLine(key)) << key;
}

TEST(Ayuda, TheLineOfF2NamesTheMonitorOfF1) {
  EXPECT_TRUE(HasLine("F1 ", "\"ULTIMOS EN INGRESAR\""));
  EXPECT_TRUE(HasLine("F2 ", "\"ULTIMOS EN INGRESAR\""));
  EXPECT_TRUE(HasLine("F3 ", "\"ULTIMOS EN SALIR\""));
}

TEST(Ayuda, ConnectingAGateTakesSevenSteps) {
  for (int step = 1; step <= 7; ++step)
    EXPECT_TRUE(HasLine(std::to_string(step) + ". ")) << step;
  EXPECT_FALSE(HasLine("8. "));
}

}  // namespace
}  // namespace vintoral
