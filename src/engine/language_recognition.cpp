#include "engine/language_recognition.h"

#include <algorithm>
#include <cstdint>

#include "engine/tokenizer.h"
#include "input/double_hyphens.h"
#include "util/ansi.h"

namespace quorvel {

LanguagesByWord LanguagesOf(const StopWordsByLanguage& stopWords) {
  LanguagesByWord languages;
  for (std::size_t i = 0; i < stopWords.size(); ++i) {
    for (const std::u16string& word : stopWords[i]) languages[word].set(i);
  }
  return languages;
}

std::size_t RecognizeLanguage(std::string bytes, const LanguagesByWord& languages) {
  std::array<std::int32_t, LANGUAGES.size()> scores{};
  BlankDoubleHyphens(bytes);
  const std::u16string text = DecodeAnsi(bytes);
  const Alphabet& alphabet = Alphabet::Windows1252();
  Position position = FIRST_POSITION;
  while (IndexOf(position) < text.size()) {
    if (!alphabet.IsWordCharacterAt(text, IndexOf(position))) {
      position = position + 1;
      continue;
    }
    const auto found = languages.find(alphabet.ToLowerCase(GetWord(text, alphabet, position)));
    if (found == languages.end()) continue;
    for (std::size_t i = 0; i < scores.size(); ++i) {
      scores.at(i) += static_cast<std::int32_t>(found->second[i]);
    }
  }
  return static_cast<std::size_t>(std::max_element(scores.begin(), scores.end()) - scores.begin());
}

}  // namespace quorvel
