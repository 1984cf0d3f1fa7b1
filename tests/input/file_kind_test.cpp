#include "input/file_kind.h"

#include <gtest/gtest.h>

namespace quorvel {

TEST(FileKind, TellsKinds) {
  using namespace std::string_literals;
  using enum FileKind;
  constexpr std::size_t EXAMINED = 100;
  const struct {
    const char* name;
    const char* file;
    std::string bytes;
    FileKind kind;
    bool isUtf8 = false;
  } rows[] = {
      {"four bytes", "a.txt", "\xFF\xFE\x61\x62", oneToFourBytes},
      {"rtf", "a.txt", "{\\rtf", rtf},
      {"hardly rtf", "a.txt", "{\\rtx1", windowsText},
      {"compound", "a.txt", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", compound},
      {"hardly compound", "a.txt", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE2", windowsText},
      {"both line ends", "a.txt", "one\r\ntwo", windowsText},
      {"returns", "a.txt", "one\rtwo\r", macText},
      {"line feeds", "a.txt", "one\ntwo\n", unixText},
      {"utf-16 le", "a.txt", "\xFF\xFEwxyz", utf16},
      {"utf-16 be", "a.txt", "\xFE\xFFwxyz", utf16},
      {"utf-32 be", "a.txt", "\0\0\xFE\xFFwxyz"s, otherUnicode},
      {"utf-8 mark, Unix line ends unseen", "a.txt", "\xEF\xBB\xBFx\ny\n", windowsText, true},
      {"xml", "a.XML", "<?xml version", windowsText, true},
      {"xml behind a zero byte", "a.xml", "\0 <?xml version\n"s, unixText},
      {"xml, utf-16 le without a mark", "a.xml", "<\0?\0x\0"s, utf16},
      {"xml, utf-16 be without a mark", "a.xml", "\0<\0?\0x"s, utf16},
      {"the same, named a text", "a.txt", "\0<\0?\0x"s, windowsText},
      {"charset", "a.htm", "<META CHARSET=\"utf-8\">", windowsText, true},
      {"quote at the end", "a.txt", std::string(65535, 'b') + "\xE2\x80", windowsText, true},
      {"charset at the end", "a.txt", std::string(65529, 'b') + "charset=utf-8", windowsText, true},
      {"no text extension", "a.dat", "say \xE2\x80\x9Chi", windowsText},
      {"return behind the examined part", "a.txt", "\n" + std::string(EXAMINED - 1, 'b') + "\r",
       unixText},
      {"return at its end", "a.txt", "\n" + std::string(EXAMINED - 2, 'b') + "\r", windowsText}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const FileClass found = ClassifyTextFile({row.file, row.bytes}, EXAMINED, true);
    EXPECT_EQ(found.kind, row.kind);
    EXPECT_EQ(found.isUtf8, row.isUtf8);
  }
  EXPECT_FALSE(ClassifyTextFile({"a.htm", "charset=utf-8"}, EXAMINED, false).isUtf8);
}

TEST(FileKind, DeclaresACharset) {
  const char* declared[] = {"CharSet=Utf-8859", "x=charset=utf-8", "charset=x charset=\"UTF-8\""};
  for (const char* bytes : declared) EXPECT_TRUE(DeclaresUtf8(bytes)) << bytes;
  const char* others[] = {"harset=utf-8", "charset='utf-8'", "charset=\"utf-8'", "charset= utf-8"};
  for (const char* bytes : others) EXPECT_FALSE(DeclaresUtf8(bytes)) << bytes;
}

}  // namespace quorvel
