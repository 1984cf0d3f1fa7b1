#include "input/text_file.h"

#include <gtest/gtest.h>

#include "input/compact_spaces.h"
#include "input/path_names.h"

namespace quorvel {
namespace {

TEST(TextFile, JoinsLines) {
  const auto slash = LineJoin::slash;
  const char* twice =
      "\xE2\x80\xA0\xE2\x80\x9C\r\n\xE2\x80\x9C";  // each line has its own first one
  const struct {
    const char *name, *bytes;
    ReadOptions options;
    const char* text;
    int linesKept;
  } rows[] = {
      {"slash", "a\r\n\r\nb\r\n", {true, 0, false, false, slash}, "a / b", 2},
      {"blank", "a\r\n\r\nb", {true, 0, false, false, LineJoin::blank}, "a b", 2},
      {"empty lines kept", "a\r\n\r\nb", {}, "a\r\n\r\nb", 3},
      {"lone CR ends a line", "a\rb\r\r\nc", {true, 0, false, false, slash}, "a / b / c", 3},
      {"lone LF ends none", "a\nb\n", {true, 0, false, false, slash}, "a\nb\n", 1},
      {"limit", "a\r\nb\r\nc", {true, 2, false, false, slash}, "a / b", 2},
      {"blanks are a line", "a\r\n \r\nb", {true, 0, false, false, slash}, "a /   / b", 3},
      {"mark dropped", "\xEF\xBB\xBFz", {true, 0, true, true, slash}, "z", 1},
      {"mark kept", "\xEF\xBB\xBFz", {true, 0, false, true, slash}, "\xEF\xBB\xBFz", 1},
      {"emptied", "a\r\n\xC2\x85\r\nb", {true, 0, true, true, slash}, "a /  / b", 3},
      {"not cleaned", "\xE2\x80\x94", {true, 0, false, true, slash}, "\xE2\x80\x94", 1},
      {"first sequences", twice, {true, 0, true, true, slash}, "\xE2\x80\x9C / \"", 2}};
  for (const auto& [name, bytes, options, text, linesKept] : rows) {
    const TextFile file = JoinLines(bytes, options);
    EXPECT_EQ(file.text, text) << name;
    EXPECT_EQ(file.linesKept, linesKept) << name;
  }
}

TEST(TextFile, SaysWhyItCannotBeRead) {
  const TextFile file = ReadTextFile("/no/such/file.txt", {});
  EXPECT_EQ(file.errorText, "No such file or directory");
  EXPECT_NE(file.errorNumber, 0);
}

TEST(CompactSpaces, MakesOneBlankOfEachRun) {
  std::string text = "\t a\r\n\x01z\xA0 z\x7F\t";
  CompactSpaces(text);
  EXPECT_EQ(text, " a z\xA0 z\x7F ");
}

TEST(PathNames, ReplaceTheExtension) {
  const char* rows[][3] = {
      {"a.TXT", "a.qvl.conc.txt", "a.qvl.ndx"},
      {"C:\\my.texts\\a", "C:\\my.texts\\a.qvl.conc.txt", "C:\\my.texts\\a.qvl.ndx"},
      {"/x.y/Report.v2.docx", "/x.y/Report.v2.qvl.conc.txt", "/x.y/Report.v2.qvl.ndx"}};
  for (const auto& row : rows) {
    EXPECT_EQ(DefaultConcordanceFileName(row[0]), row[1]);
    EXPECT_EQ(DefaultIndexFileName(row[0]), row[2]);
  }
  EXPECT_TRUE(IsConcordanceFileName("a.QVL.Conc.txt"));
  EXPECT_FALSE(IsConcordanceFileName("a.conc.txt"));
  EXPECT_TRUE(IsIndexFileName("a.qvl.NDX"));
}

}  // namespace
}  // namespace quorvel
