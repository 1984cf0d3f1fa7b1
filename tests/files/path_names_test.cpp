#include "files/path_names.h"

#include <gtest/gtest.h>

namespace quorvel {

TEST(PathNames, TellTheKindOfAFileAndThoseBesideIt) {
  // The path, its extension, the stem for the files beside it; whether it is a web page or a text.
  const std::tuple<const char*, const char*, std::string, bool, bool> rows[] = {
      {"", "", ".", false, false},
      {"a.TXT", "TXT", "a.", false, true},
      {"my.texts/a", "", "my.texts/a.", false, false},
      {"/my.texts\\a.prn", "prn", "/my.texts\\a.", false, true},
      {"HTM/a", "", "HTM/a.", true, false},
      {"a.xHtMl", "xHtMl", "a.", true, true},
      {"a.txts", "txts", "a.", false, false}};
  for (const auto& [path, extension, stem, isPage, isText] : rows) {
    SCOPED_TRACE(path);
    EXPECT_EQ(ExtensionOf(path), extension);
    EXPECT_EQ(PathNamesHtml(path), isPage);
    EXPECT_EQ(HasTextFileExtension(path), isText);
    EXPECT_EQ(DefaultConcordanceFileName(path), stem + "qvl.conc.txt");
    EXPECT_EQ(DefaultIndexFileName(path), stem + "qvl.ndx");
    EXPECT_EQ(DefaultRowsFileName(path, "tsv"), stem + "qvl.conc.tsv");
  }
  EXPECT_EQ(LowerExtensionOf("A.DocX"), "docx");
  for (const char* known :
       {"prn", "csv", "xhtml", "xhtm", "shtml", "shtm", "html", "htm", "xml", "log", "txt"}) {
    EXPECT_TRUE(HasTextFileExtension(std::string("a.") + known)) << known;
  }
  EXPECT_TRUE(IsConcordanceFileName("a.QVL.Conc.txt") && IsIndexFileName("a.Qvl.NDX"));
  EXPECT_FALSE(IsConcordanceFileName("a.conc.txt") || IsIndexFileName("qvl.ndx.a"));
}

}  // namespace quorvel
