#include "input/text_file.h"

#include <gtest/gtest.h>

#include "input/compact_spaces.h"
#include "input/path_names.h"

namespace quorvel {
namespace {

TEST(TextFile, JoinsLines) {
  struct Row {
    const char* name;
    const char* bytes;
    ReadOptions options;
    const char* text;
    int linesKept;
  };
  constexpr bool SKIP = true;
  const Row rows[] = {
      {"slash", "a\r\n\r\nb\r\n", {SKIP, 0, false, false, LineJoin::slash}, "a / b", 2},
      {"blank", "a\r\n\r\nb", {SKIP, 0, false, false, LineJoin::blank}, "a b", 2},
      {"empty lines kept", "a\r\n\r\nb", {}, "a\r\n\r\nb", 3},
      {"lone CR ends a line",
       "a\rb\r\r\nc",
       {SKIP, 0, false, false, LineJoin::slash},
       "a / b / c",
       3},
      {"lone LF ends none", "a\nb\n", {SKIP, 0, false, false, LineJoin::slash}, "a\nb\n", 1},
      {"limit", "a\r\nb\r\nc", {SKIP, 2, false, false, LineJoin::slash}, "a / b", 2},
      {"a line of blanks is not empty",
       "a\r\n \r\nb",
       {SKIP, 0, false, false, LineJoin::slash},
       "a /   / b",
       3},
      {"mark dropped",
       "\xEF\xBB\xBF"
       "a\r\nb",
       {SKIP, 0, true, true, LineJoin::slash},
       "a / b",
       2},
      {"mark kept",
       "\xEF\xBB\xBF"
       "a",
       {SKIP, 0, false, true, LineJoin::slash},
       "\xEF\xBB\xBF"
       "a",
       1},
      {"a line that the repair empties counts",
       "a\r\n\xC2\x85\r\nb",
       {SKIP, 0, true, true, LineJoin::slash},
       "a /  / b",
       3},
      {"clean-up needs the conversion",
       "\xE2\x80\x94",
       {SKIP, 0, false, true, LineJoin::slash},
       "\xE2\x80\x94",
       1},
      {"each line has its own first sequence",
       "\xE2\x80\xA0\xE2\x80\x9C\r\n\xE2\x80\x9C",
       {SKIP, 0, true, true, LineJoin::slash},
       "\xE2\x80\x9C / \"",
       2}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const TextFile file = JoinLines(row.bytes, row.options);
    EXPECT_EQ(file.text, row.text);
    EXPECT_EQ(file.linesKept, row.linesKept);
  }
}

TEST(TextFile, SaysWhyItCannotBeRead) {
  const TextFile file = ReadTextFile("/no/such/file.txt", {});
  EXPECT_EQ(file.errorText, "No such file or directory");
  EXPECT_NE(file.errorNumber, 0);
}

TEST(CompactSpaces, MakesOneBlankOfEachRun) {
  std::string text =
      "\t a\r\n\x01"
      "b\xA0 c\x7F\t";
  CompactSpaces(text);
  EXPECT_EQ(text, " a b\xA0 c\x7F ");
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
