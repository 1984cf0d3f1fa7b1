// Makes the stop-words files of the program from a plain list for each language:
//
//     make_stop_words LISTS-FOLDER TARGET-FOLDER
//
// The program leaves out a word if its stop-words file has it with exactly the same spelling, after
// the plural rule. So a file has each word of its list in lower case and with a capital, and both
// forms also without their plural "s" where the rule removes it. In a list, lines that begin with
// "#" are comments; blanks and line ends separate words.

#include <algorithm>
#include <cstdio>
#include <set>
#include <string>
#include <vector>

#include "files/file_system.h"
#include "files/output_file.h"
#include "files/read_file.h"
#include "lists/languages.h"
#include "lists/word_file.h"
#include "util/characters.h"
#include "util/make_singular.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

using WordSet = std::set<std::u16string>;

void AddForms(std::u16string word, WordSet& forms) {
  for (int i = 0; i < 2; ++i) {
    forms.insert(word);
    forms.emplace(MakeSingular(word, Alphabet::Windows1252()));
    word.front() = ToUpperCase(word.front());
  }
}

// The words of a plain list with all their forms. Empty when the list cannot be read.
WordSet FormsOfList(const std::string& path) {
  SilentProgress nobody;
  const Result<InputBytes> list = ReadInput(path, nobody);
  const std::u16string text = DecodeUtf8(list ? list->View() : "");
  WordSet forms;
  std::u16string_view rest = text;
  while (!rest.empty()) {
    const std::size_t length = std::min(rest.find(u'\n'), rest.size());
    const std::u16string_view line = rest.substr(0, length);
    rest.remove_prefix(std::min(length + 1, rest.size()));
    if (line.starts_with(u'#')) continue;
    for (const std::u16string_view word : SplitAtBlanks(line))
      AddForms(std::u16string(word), forms);
  }
  return forms;
}

bool WriteList(const Language& language, const WordSet& forms, const std::string& folder) {
  std::string bytes = "/*\r\nStop words of Quorvel: " + std::string(language.name) +
                      ".\r\nMade by tools/make_stop_words from data/stopwords: change the lists "
                      "there, not this file.\r\n*/\r\n";
  for (const std::u16string& word : forms) bytes += EncodeUtf8(word) + "\r\n";
  OutputFile file(JoinPath(folder, std::string(language.stopWordsFile)), {});
  file.Write(bytes);
  return file.Commit();
}

bool MakeStopWords(const std::string& listsFolder, const std::string& targetFolder) {
  WordSet all;
  bool made = true;
  for (const Language& language : LANGUAGES) {
    const WordSet forms = FormsOfList(JoinPath(listsFolder, std::string(language.code) + ".txt"));
    made = made && !forms.empty() && WriteList(language, forms, targetFolder);
    all.insert(forms.begin(), forms.end());
  }
  return made && WriteList(ALL_LANGUAGES, all, targetFolder);
}

}  // namespace
}  // namespace quorvel

int main(int argumentCount, char** arguments) {
  const std::vector<std::string> names(arguments, arguments + argumentCount);
  if (names.size() == 3 && quorvel::MakeStopWords(names[1], names[2])) return 0;
  std::fputs("make_stop_words: the lists cannot be read or the files not written\n", stderr);
  return 1;
}
