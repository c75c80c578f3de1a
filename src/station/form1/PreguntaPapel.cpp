#include "station/form1/PreguntaPapel.h"

namespace vintoral {

std::optional<PapelInforme> PreguntarPapel(Screen& screen, const String& titulo, const String& enTira,
                                           const String& soloResumen) {
  const auto ask = [&](const String& text) {
    return screen.Show(
        {titulo, text, Icon::kQuestion, {Answer::kYes, Answer::kNo, Answer::kCancel}, Answer::kYes});
  };
  const Answer slip = ask(enTira);
  if (slip == Answer::kCancel) return std::nullopt;
  if (slip != Answer::kYes) return PapelInforme{};
  const Answer summary = ask(soloResumen);
  if (summary == Answer::kCancel) return std::nullopt;
  return PapelInforme{.tira = true, .detalle = summary == Answer::kNo};
}

}  // namespace vintoral
