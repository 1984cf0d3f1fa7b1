// Both readings of texts with characters outside Windows-1252, or in other encodings.

#include <gtest/gtest.h>

#include "support/made_texts.h"
#include "support/run_program.h"
#include "support/zip_builder.h"

namespace quorvel {
namespace {

std::string DocxOf(const std::string& body) {
  return ZipArchive({{"word/document.xml",
                      "<w:document xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/"
                      "2006/main\" xmlns:mc=\"http://schemas.openxmlformats.org/"
                      "markup-compatibility/2006\"><w:body><w:p>" +
                          body + "</w:p></w:body></w:document>"}});
}

// The words of an input, each followed by a blank, or the message if there are none.
std::string WordsOf(const TestFolder& folder, const std::string& input,
                    const std::string& encoding) {
  const int status =
      RunProgram(folder, QUORVEL_CLI,
                 "--encoding " + encoding + " --language none --format tsv -c 0 -q -o - " + input +
                     " --answer no");
  if (status != 0) return std::to_string(status);
  std::string words;
  std::istringstream rows(folder.Read("out"));
  std::string row;
  std::getline(rows, row);
  while (std::getline(rows, row)) {
    words += row.substr(0, row.find('\t')) + row.substr(row.rfind('\t') + 1) + ' ';
  }
  return words;
}

TEST(Readings, KeepOrLoseWhatWindows1252DoesNotHold) {
  const std::string box = "<w:r><w:t>Inside</w:t></w:r>";
  const struct {
    const char* name;
    const char* input;
    std::string bytes, words, wordsInUnicode;
  } rows[] = {
      {"ligatures", "a.txt", "Le cœur de l’œuvre\r\n", "uvre1 ", "cœur1 œuvre1 "},
      {"signs", "a.txt", "Šárka d†ied 5€old\r\n", "árka1 died1 old1 ", "ied1 old1 Šárka1 "},
      {"Polish", "a.txt", "Łódź płynie\r\n", "ynie1 ", "płynie1 Łódź1 "},
      {"Czech", "a.txt", "Příliš žluťoučký\r\n", "liÅ1 luÅ1 ouÄ1 ", "Příliš1 žluťoučký1 "},
      {"Greek", "a.txt", "Ελλάδα ΕΛΛΆΔΑ\r\n", "3", "ΕΛΛΆΔΑ1 Ελλάδα1 "},
      {"Russian", "a.txt", "Привет мир\r\n", "ÐŸÑ1 ", "мир1 Привет1 "},
      {"long, LF", "a.txt", Repeated("the harbour\n", 50000), "1", "harbour50000 the50000 "},
      {"a tab", "a.docx", DocxOf("<w:r><w:t>Alpha</w:t><w:tab/><w:t>Beta</w:t></w:r>"),
       "AlphaBeta1 ", "Alpha1 Beta1 "},
      {"a text box", "a.docx",
       DocxOf("<mc:AlternateContent><mc:Choice>" + box + "</mc:Choice><mc:Fallback>" + box +
              "</mc:Fallback></mc:AlternateContent>"),
       "InsideInside1 ", "Inside1 "},
  };
  for (const auto& row : rows) {
    const TestFolder folder;
    (void)folder.Write(row.input, row.bytes);
    EXPECT_EQ(WordsOf(folder, row.input, "auto"), row.words) << row.name;
    EXPECT_EQ(WordsOf(folder, row.input, "unicode"), row.wordsInUnicode) << row.name;
  }
}

}  // namespace
}  // namespace quorvel
