#include "run/fault_texts.h"

#include <gtest/gtest.h>

namespace quorvel {

TEST(FaultTexts, NameWhatFailedAndWhere) {
  using enum FaultKind;
  const std::pair<Fault, std::string> rows[] = {
      {{notRead, "a.txt", "It broke"}, "Read error: It broke\r\nwhen reading input file."},
      {{notRead, "a.Docx", ""}, "Read error: File a.Docx\r\ncannot be read."},
      {{notAFile, "a\tb", ""}, "Fatal error: File a\\tb\r\nis a device or a pipe, not a file."},
      {{textTooLong, "a.txt", ""},
       "Read error: The text is longer than 2 GB.\r\nwhen reading input file."},
      {{unknownCharset, "a#.htm", "koi8-r"},
       "Read error: File a#.htm\r\nis in the character set koi8-r, which cannot be read."},
      {{fileNotRemoved, "@/@", ""}, "Error: Error when attempting to delete @/@"},
      {{folderNotRemoved, "f", ""}, "Error: f when attempting to delete folder "},
      {{notAllowedInStopWord, "", ","},
       "Character not allowed: The character , occurs in some stop word\r\nbut is not a character "
       "allowed in a word.\r\n\r\nWords-to-ignore must be separated by a space, not by a comma."},
      {{notWritten, "a.txt", "It broke"}, "Quorvel: It broke"}};
  for (const auto& [fault, said] : rows) {
    const Message message = MessageOf(fault);
    EXPECT_EQ(message.title + ": " + message.text, said);
    EXPECT_EQ(message.icon == Icon::information, fault.kind == notAFile) << said;
  }
}

}  // namespace quorvel
