#include "input/input_file.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

std::string UnixText(std::size_t size) { return "a\n" + std::string(size - 2, 'b'); }

TEST(InputFile, TellsKinds) {
  using namespace std::string_literals;
  using enum FileKind;
  const struct {
    const char* name;
    const char* file;
    std::string bytes;
    FileKind kind;
    bool isUtf8 = false;
  } rows[] = {
      {"no path", "", "abcde", noPath},
      {"no bytes", "a.txt", "", empty},
      {"four bytes", "a.txt", "abcd", oneToFourBytes},
      {"five bytes", "a.txt", "abcde", windowsText},
      {"rtf", "a.txt", "{\\rtf1", rtf},
      {"returns", "a.txt", "one\rtwo\r", macText},
      {"utf-16 be", "a.txt", "\xFE\xFFwxyz", otherUnicode},
      {"utf-32 be", "a.txt", "\0\0\xFE\xFFwxyz"s, otherUnicode},
      {"utf-8 mark, Unix line ends unseen", "a.txt", "\xEF\xBB\xBFx\ny\n", windowsText, true},
      {"xml", "a.XML", "<?xml version", windowsText, true},
      {"xml as text", "a.txt", "<?xml version", windowsText},
      {"xml, utf-16", "a.xml", "<\0?\0x\0"s, otherUnicode},
      {"charset", "a.htm", "<META CHARSET=\"utf-8\">", windowsText, true},
      {"quote at the end", "a.txt", std::string(65535, 'b') + "\xE2\x80", windowsText, true},
      {"charset at the end", "a.txt", std::string(65529, 'b') + "charset=utf-8", windowsText, true},
      {"no text extension", "a.dat", "say \xE2\x80\x9Chi", windowsText},
      {"return behind the examined part", "a.txt", UnixText(16384) + "\r\n", unixText},
      {"line end behind it", "a.txt", std::string(16384, 'b') + "\n", windowsText}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const FileClass found = ClassifyTextFile({row.file, row.bytes}, 16384, true);
    EXPECT_EQ(found.kind, row.kind);
    EXPECT_EQ(found.isUtf8, row.isUtf8);
  }
}

}  // namespace
}  // namespace quorvel
