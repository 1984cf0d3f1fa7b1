#include "input/text_sample.h"

#include <optional>
#include <utility>

#include "files/file_system.h"
#include "files/path_names.h"
#include "input/document_text.h"
#include "input/docx_text.h"
#include "input/entities.h"
#include "input/html_text.h"
#include "input/utf8_repair.h"
#include "util/ansi.h"
#include "util/silent_interface.h"

namespace quorvel {
namespace {

// Passes on what the user has to be told, and nothing else.
struct ComplaintsOnly : SilentInterface {
  explicit ComplaintsOnly(UserInterface& ui) : whole(ui) {}
  Answer Ask(const Message& message) override { return whole.Ask(message); }
  UserInterface& whole;
};

std::optional<std::string> BodyOfWordDocument(const std::string& path, UserInterface& whole) {
  ComplaintsOnly ui(whole);
  ExtractOptions options;
  options.askOnBadChecksum = false;
  options.askOnBigFile = false;
  ExtractedText extracted = ExtractDocumentText(path, "QVL", options, ui);
  switch (extracted.code) {
    case ExtractionCode::noTemporaryFolder:
    case ExtractionCode::unwritable:
    case ExtractionCode::unreadable:
      return std::nullopt;
    default:
      return std::move(extracted.text);
  }
}

std::string BodyOfPage(std::string page) {
  bool isUtf8 = false;
  const std::optional<std::size_t> body = FindHtmlBody(page, isUtf8);
  if (!body) return page;
  page.erase(0, *body);
  StripTags(page);
  DecodeEntities(page);
  return page;
}

std::optional<std::string> BytesOf(const std::string& path, std::size_t length, UserInterface& ui) {
  if (IsWordDocument(path)) return BodyOfWordDocument(path, ui);
  const bool isPage = PathNamesHtml(path);
  FileRead file = ReadFileBytes(path, isPage ? MOST_BYTES_READ : length);
  if (!file.error.empty()) return std::nullopt;
  return isPage ? BodyOfPage(std::move(file.bytes)) : std::move(file.bytes);
}

}  // namespace

std::optional<std::string> TextSample(const std::string& path, std::size_t length,
                                      UserInterface& ui) {
  if (!IsRegularFile(path)) return "";
  std::optional<std::string> text = BytesOf(path, length, ui);
  if (!text) return std::nullopt;
  if (text->size() > length) text->resize(length);
  RepairUtf8(*text);
  PlainPunctuation(*text);
  return text;
}

}  // namespace quorvel
