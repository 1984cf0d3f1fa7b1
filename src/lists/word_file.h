// The reader of word files: the one format of stop-words files and keywords files.
//
// Plain text, one word or several, separated by blanks, in a line; lines that begin
// with "/*" or end with "*/" are comments, and so is all that stands between two
// such. Windows-1252 and UTF-8 give the same words. What a word may hold, and in
// which order words are kept, is for the two lists to say.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "util/user_interface.h"

namespace quorvel {

// What the user is told while a kind of list is read.
struct WordFileTexts {
  const char* title;     // of its message boxes
  const char* missing;   // before the path of a file that is not there
  const char* progress;  // while the file is read
  const char* stopped;   // after the user has stopped it
  const char* failed;    // between the number of an error and the path
};

// The words of a file in the order that they stand in, unchanged. Nothing when
// there is no path, the file is missing, is no text or cannot be read (the user has
// been told), or reading was stopped; in a file of more than 20480 bytes the user
// is offered to.
[[nodiscard]] std::optional<std::vector<std::u16string>> ReadWordFile(const std::string& path,
                                                                      const WordFileTexts& texts,
                                                                      UserInterface& ui);

// The same for the bytes of a file, in silence; nothing after a stop request.
[[nodiscard]] std::optional<std::vector<std::u16string>> WordsOfFileBytes(std::string_view bytes,
                                                                          UserInterface& ui);

// The words between the blanks of `text`: views into it.
[[nodiscard]] std::vector<std::u16string_view> SplitAtBlanks(std::u16string_view text);

}  // namespace quorvel
