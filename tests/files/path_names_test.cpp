#include "files/path_names.h"

#include <gtest/gtest.h>

namespace quorvel {

TEST(PathNames, TellTheKindOfAFileAndThoseBesideIt) {
  const struct {
    const char* path;
    const char* extension;
    const char* stem;  // of the files beside it
    bool html = false, text = false;
  } rows[] = {
      {"", "", "."},
      {"a.TXT", "TXT", "a.", false, true},
      {"my.texts/a", "", "my.texts/a."},
      {"/my.texts\\a.prn", "prn", "/my.texts\\a.", false, true},
      {"HTM/a", "", "HTM/a.", true},
      {"a.xHtMl", "xHtMl", "a.", true, true},
      {"a.txts", "txts", "a."},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.path);
    const std::string stem = row.stem;
    EXPECT_EQ(ExtensionOf(row.path), row.extension);
    EXPECT_EQ(PathNamesHtml(row.path), row.html);
    EXPECT_EQ(HasTextFileExtension(row.path), row.text);
    EXPECT_EQ(DefaultConcordanceFileName(row.path), stem + "qvl.conc.txt");
    EXPECT_EQ(DefaultIndexFileName(row.path), stem + "qvl.ndx");
    EXPECT_EQ(DefaultRowsFileName(row.path, "tsv"), stem + "qvl.conc.tsv");
  }
  EXPECT_EQ(LowerExtensionOf("A.DocX"), "docx");
  for (const char* extension :
       {"prn", "csv", "xhtml", "xhtm", "shtml", "shtm", "html", "htm", "xml", "log", "txt"}) {
    EXPECT_TRUE(HasTextFileExtension(std::string("a.") + extension)) << extension;
  }
  EXPECT_TRUE(IsConcordanceFileName("a.QVL.Conc.txt") && IsIndexFileName("a.Qvl.NDX"));
  EXPECT_FALSE(IsConcordanceFileName("a.conc.txt") || IsIndexFileName("qvl.ndx.a"));
}

}  // namespace quorvel
