#include "output/concordance_file.h"

#include "util/text_form.h"
#include "util/time_text.h"
#include "util/utf8.h"
#include "util/version.h"

namespace quorvel {
namespace {

// Replaces control characters in a path, because a line end would split the header line.
std::string PathOnOneLine(const std::string& path) {
  std::u16string text = DecodeUtf8(path);
  for (char16_t& ch : text) {
    if (IsControl(ch)) ch = u'?';
  }
  return EncodeUtf8(text);
}

}  // namespace

// Compatibility: the last digit is always 6, as in the headers of users' files.
std::string VersionText() {
  return std::to_string(VERSION_MAJOR) + "." + std::to_string(VERSION_MINOR) + "6";
}

std::string FileHeader(Mode mode, const std::string& inputFile, std::string_view digest,
                       std::time_t time) {
  std::string header = "Input file: " + PathOnOneLine(inputFile);
  header += LINE_END;
  if (mode == Mode::create) {
    header.append("MD5 message digest of input file: ").append(digest).append(LINE_END);
  }
  return header.append(mode == Mode::create ? "Concordance" : "Search results")
      .append(" file created using Quorvel (V.")
      .append(VersionText())
      .append("): ")
      .append(DateAndTimeText(time))
      .append(LINE_END)
      .append(LINE_END);
}

}  // namespace quorvel
