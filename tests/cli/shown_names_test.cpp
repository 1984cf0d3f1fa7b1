// File names that contain control characters of a terminal. The built program must escape them.

#include <gtest/gtest.h>

#include "naive/places.h"
#include "support/platform.h"
#include "support/run_program.h"

namespace quorvel {

// A line feed, a control sequence, a control character of Latin 1, a byte that is not UTF-8, and a
// character that must be shown unchanged.
constexpr const char* NAME = "e\nv\x1b[31m\xc2\x9b\xff\x7f\xc3\xa9.txt";
constexpr const char* SHOWN = "e\\nv\\x1b[31m\\xc2\\x9b\\xff\\x7f\xc3\xa9.txt";

TEST(ShownNames, HoldNoControlCharacter) {
  SKIP_ON_WINDOWS("no name holds such characters");
  // The arguments, with "@" for the name; the exit status; the message.
  const std::tuple<std::string, int, const char*> rows[] = {
      {"'@'", 1, "File @ not found.\n"},
      {"a.txt -k '@'", 1, "a.txt: Keywords file not found: @\n"},
      {"-s '@'", 1, "@: Error when attempting to restore settings: No such file or directory\n"},
      {"a.txt --order '@'", 2,
       "--order: @ not in {alphabetical,frequency}\nSee quorvel-cli --help for the options.\n"},
      {"a.txt --extra-stop-words '\x1b'", 1,
       "a.txt: The character \\x1b occurs in some stop word but is not a character allowed in a "
       "word.\n"}};
  const TestFolder folder;
  for (const std::string name : {"a.txt", NAME}) {
    (void)folder.Write(name, "the cat and the dog\r\n");
    EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, "'" + name + "' -o o.txt --language none"), 0);
  }
  EXPECT_TRUE(folder.Read("o.txt").starts_with("Input file: e?v?[31m?\xff?\xe9.txt\r\nMD5 "));
  std::filesystem::remove(folder.Path(NAME));
  for (const auto& [arguments, status, errors] : rows) {
    EXPECT_EQ(
        RunProgram(folder, QUORVEL_CLI, "--language none " + naive::Replace(arguments, "@", NAME)),
        status);
    EXPECT_EQ(folder.Read("err"),
              naive::Replace(std::string("quorvel-cli: ") + errors, "@", SHOWN));
  }
}

}  // namespace quorvel
