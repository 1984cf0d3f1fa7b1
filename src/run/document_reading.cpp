#include "run/document_reading.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "input/lost_characters.h"
#include "run/fault_texts.h"
#include "unicode/packed_documents.h"
#include "unicode/packed_text.h"
#include "unicode/prepared_text.h"
#include "util/visible_text.h"

namespace quorvel {
namespace {

// The text of an input before it is prepared.
struct InputText {
  std::string text;
  std::int64_t lostCharacters = 0;
};

// Returns the value of a result. If there is none, tells the user why, except after a stop.
template <typename Value>
std::optional<Value> ValueOrTell(Result<Value> result, Conversation& ui) {
  if (result) return *std::move(result);
  if (result.Error().kind != FaultKind::stopped) ui.Ask(MessageOf(result.Error()));
  return std::nullopt;
}

Message YesOrNo(std::string text, std::string title, Icon icon, Answer preset) {
  return {std::move(text), std::move(title), icon, Buttons::yesNo, preset};
}

bool WishesToScanAnyway(const std::string& path, Conversation& ui) {
  return ui.Ask(YesOrNo("Invalid checksum found when processing\r\n" + VisibleName(path) +
                            "\r\nDo you wish to scan this file anyway?",
                        "Error", Icon::exclamation, Answer::yes)) == Answer::yes;
}

bool WishesToScanBigFile(const std::string& path, Conversation& ui) {
  const char* const title = "Big file";
  const std::string text = VisibleName(path) +
                           "\r\nis rather large.  It may take awhile to scan.\r\n"
                           "Do you wish to continue?";
  if (ui.Ask(YesOrNo(text, title, Icon::none, Answer::no)) == Answer::yes) return true;
  ui.Tell("You could try saving it as a text file\r\nand applying this program to that file.",
          title, Icon::information);
  return false;
}

// A user who does not want to continue counts as a stop.
std::optional<Fault> SettleBody(const UnpackedEntry& body, const std::string& path,
                                const BodyLimits& limits, Conversation& ui) {
  if (body.isDamaged) {
    if (!WishesToScanAnyway(path, ui)) return Fault{FaultKind::stopped, path, {}};
    if (body.length == 0) return Fault{FaultKind::noBody, path, {}};
  }
  if (body.length > limits.warning && !WishesToScanBigFile(path, ui)) {
    return Fault{FaultKind::stopped, path, {}};
  }
  return std::nullopt;
}

bool ReallyWishesToStop(Conversation& ui) {
  if (ui.Ask(YesOrNo("Many different words have been found.\r\nDo you really wish to stop?", "Stop",
                     Icon::none, Answer::yes)) == Answer::yes) {
    return true;
  }
  ui.ClearStop();
  return false;
}

// Returns the text of a document, with its body unpacked through `file`. Releases the document's
// bytes after unpacking.
Result<InputText> TextThroughFile(InputBytes document, const TemporaryFile& file,
                                  const BodyLimits& limits, Conversation& ui) {
  const std::string path = document.Path();
  const Result<UnpackedEntry> body = UnpackDocumentBody(document, file, limits);
  document = {};
  if (!body) return body.Error();
  if (std::optional<Fault> fault = SettleBody(*body, path, limits, ui)) return *std::move(fault);
  const Result<std::string> xml = file.ReadBack(limits.hard);
  if (!xml) return Fault{FaultKind::notRead, path, xml.Error().reason};
  DocumentRuns runs(*xml);
  while (!runs.Read(ui)) {
    if (ReallyWishesToStop(ui)) return Fault{FaultKind::stopped, path, {}};
  }
  return InputText{std::move(runs.Text()), runs.LostCharacters()};
}

std::optional<InputText> ReadWordDocument(InputBytes document, const BodyLimits& limits,
                                          Conversation& ui) {
  ui.BeginPhase("Extracting text");
  TemporaryFile file("QVL", BODY_ENTRY);
  Result<InputText> text = TextThroughFile(std::move(document), file, limits, ui);
  if (const std::optional<Fault> stayed = file.Remove()) ui.Ask(MessageOf(*stayed));
  return ValueOrTell(std::move(text), ui);
}

// Reports why a text file or a web page could not be read.
void TellUnread(const Fault& fault, Conversation& ui) {
  if (fault.kind == FaultKind::stopped) {
    ui.AppendOutput("Stopped when reading file.\r\n");
  } else {
    ui.Ask(MessageOf(fault));
    ui.SetOutput("");
  }
}

std::optional<InputText> ReadTextOrPage(const InputBytes& input, EncodingChoice choice,
                                        bool& inputIsUtf8, bool& macNoticeShown, Conversation& ui) {
  if (!SettleInputEncoding(input, choice, inputIsUtf8, macNoticeShown, ui)) {
    ui.SetOutput("");
    return std::nullopt;
  }
  Result<std::string> text = ReadInputFile(input, inputIsUtf8, ui);
  if (text) return InputText{*std::move(text), LostCharacters(input, inputIsUtf8)};
  TellUnread(text.Error(), ui);
  return std::nullopt;
}

// Returns the text of a text file or web page that is read as Unicode.
std::optional<PreparedText> ReadUnicode(const InputBytes& input, const ReadingOptions& options,
                                        bool& macNoticeShown, Conversation& ui) {
  const CheckOptions checks = {.reading = options.reading};
  if (!CheckInputFile(input, checks, macNoticeShown, ui).accepted) {
    ui.SetOutput("");
    return std::nullopt;
  }
  Result<PreparedText> text = PrepareUnicodeText(input, {options.ignoreLists, options.notes}, ui);
  if (text) return *std::move(text);
  TellUnread(text.Error(), ui);
  return std::nullopt;
}

// Returns the text of a word-processor document or a book. Releases the document's bytes after
// unpacking.
Result<PreparedText> ReadPacked(InputBytes document, PackedKind kind, const ReadingRequest& request,
                                Conversation& ui) {
  const std::string path = document.Path();
  const UnicodeOptions options = {request.options.ignoreLists, request.options.notes};
  ui.BeginPhase("Extracting text");
  const Result<UnpackedParts> parts = UnpackTextParts(document, kind, options, request.limits, ui);
  document = {};
  if (!parts) return parts.Error();
  const UnpackedEntry body = {parts->length, parts->isDamaged};
  if (std::optional<Fault> fault = SettleBody(body, path, request.limits, ui)) {
    return *std::move(fault);
  }
  PackedText text(*parts, options);
  while (!text.Read(ui)) {
    if (ReallyWishesToStop(ui)) return Fault{FaultKind::stopped, path, {}};
  }
  PreparedText prepared = text.Take();
  if (!text.IsDamaged()) return prepared;
  if (!parts->isDamaged && !WishesToScanAnyway(path, ui)) {
    return Fault{FaultKind::stopped, path, {}};
  }
  if (prepared.text.empty()) return Fault{FaultKind::noBody, path, {}};
  return prepared;
}

std::shared_ptr<const Document> ObtainUnicodeDocument(InputBytes input,
                                                      const ReadingRequest& request,
                                                      bool& macNoticeShown, Conversation& ui) {
  DocumentSource source = {input.Path(), input.Stamp(), request.digest};
  std::optional<PreparedText> text;
  if (const std::optional<PackedKind> kind = PackedKindOf(input)) {
    text = ValueOrTell(ReadPacked(std::exchange(input, {}), *kind, request, ui), ui);
  } else {
    text = ReadUnicode(input, request.options, macNoticeShown, ui);
    input = {};
  }
  if (!text) return nullptr;
  return MakeUnicodeDocument(std::move(source), request.options, text->text, text->replaced);
}

}  // namespace

std::shared_ptr<const Document> ObtainDocument(InputBytes input, const ReadingRequest& request,
                                               bool& inputIsUtf8, bool& macNoticeShown,
                                               Conversation& ui) {
  if (request.options.reading == Reading::unicode) {
    return ObtainUnicodeDocument(std::move(input), request, macNoticeShown, ui);
  }
  DocumentSource source = {input.Path(), input.Stamp(), request.digest};
  std::optional<InputText> text;
  if (IsWordDocument(input)) {
    text = ReadWordDocument(std::exchange(input, {}), request.limits, ui);
    if (text) inputIsUtf8 = true;
  } else {
    text = ReadTextOrPage(input, request.encodingChoice, inputIsUtf8, macNoticeShown, ui);
    input = {};
  }
  if (!text) return nullptr;
  ReadingOptions options = request.options;
  options.isUtf8 = inputIsUtf8;
  auto document =
      MakeDocument(std::move(source), options, std::move(text->text), ui, text->lostCharacters);
  return ValueOrTell(std::move(document), ui).value_or(nullptr);
}

}  // namespace quorvel
