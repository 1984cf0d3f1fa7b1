#include "ui/translation.h"

#include <gtest/gtest.h>

namespace quorvel {

TEST(Translations, AreChosenByLanguage) {
  const struct {
    const char* name;
    QStringList languages;
    const char* chosen;
  } rows[] = {
      {"language and country", {"pt-BR", "pt"}, "pt_BR"},
      {"language of another country", {"de-AT", "fr"}, "de"},
      {"script", {"zh-Hant-TW"}, "zh_Hant"},
      {"second language", {"nl-NL", "de"}, "de"},
      {"English comes first", {"en-GB", "en", "de"}, ""},
      {"English comes second", {"nl", "en-US", "de"}, ""},
      {"part of a name", {"den-DE", "d"}, ""},
      {"no language", {"C"}, ""},
  };
  const QStringList installed = {"de", "fr", "pt_BR", "zh_Hant"};
  const auto exists = [&](const QString& name) { return installed.contains(name); };
  for (const auto& [name, languages, chosen] : rows) {
    EXPECT_EQ(ChooseTranslation(languages, exists), chosen) << name;
  }
}

}  // namespace quorvel
