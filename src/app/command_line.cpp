#include "app/command_line.h"

namespace korvinel {
namespace {

constexpr const char* help = R"(Uso: korvinel

Registra e analizza un elettroencefalogramma a quattro canali. Tutto si fa
nella finestra; nessuna opzione cambia ciò che il programma fa.

  -h, --help   mostra questa pagina
  --version    mostra la versione

Per provarlo senza strumento: korvinel-prova. Registrazioni da un terminale:
korvinel-recording. Il manuale: /usr/share/doc/korvinel/manuale/manuale.pdf
)";

TerminalAnswer refusal(const std::string& word) {
  return {2,
          "korvinel: argomento sconosciuto «" + word + "»; il programma si avvia senza argomenti (korvinel --help)\n"};
}

}  // namespace

std::optional<TerminalAnswer> answerTo(const std::vector<std::string>& words) {
  std::optional<TerminalAnswer> answer;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    // A desktop that restores its session starts each program again with the name that it had in it.
    if (word == "-session" && i + 1 < words.size()) {
      ++i;
    } else if (word == "-h" || word == "--help") {
      answer = {0, help};
    } else if (word == "--version") {
      answer = {0, "korvinel " KORVINEL_VERSION "\n"};
    } else {
      return refusal(word);
    }
  }
  return answer;
}

}  // namespace korvinel
