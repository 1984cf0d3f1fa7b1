// Reads any bytes as a word-processor document: archive, body and temporary folder.

#include "fuzz_input.h"
#include "input/docx_text.h"
#include "run/document_reading.h"
#include "run/silent_conversation.h"

namespace quorvel::fuzz {
namespace {

// Gives the same answer to every question and records all messages.
struct AnsweringConversation : SilentConversation {
  Answer answer = Answer::no;
  std::string said;
  Answer Ask(const Message& message) override {
    said += message.text;
    return answer;
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const FuzzFolder folder;
  FuzzInput input(data, size);
  AnsweringConversation ui;
  if (input.Flag()) ui.answer = Answer::yes;
  // Small limits, because large bodies behave in the same way but take longer.
  const BodyLimits limits = {.hard = 65536, .warning = 4096};
  const InputBytes bytes("a.docx", input.Rest());
  TemporaryFile temporary("QVL", BODY_ENTRY);
  const Result<UnpackedEntry> body = UnpackDocumentBody(bytes, temporary, limits);
  Require(!temporary.Remove() && folder.Count() == 0, "the temporary folder is gone");
  Require(body || body.Error().kind == FaultKind::bodyTooLarge,
          "a document causes no fault of the system");
  Require(!body || body->length <= limits.hard, "the limit holds");
  if (!IsWordDocument(bytes)) return 0;
  bool isUtf8 = false;
  bool macNoticeShown = true;
  const ReadingRequest request = {.limits = limits};
  const auto document = ObtainDocument(bytes, request, isUtf8, macNoticeShown, ui);
  Require(folder.Count() == 0, "the temporary folder is gone after all questions");
  Require(document || !ui.said.empty(), "the user knows why there is no document");
  Require(!document || document->narrowText.size() <= limits.hard / 3 * 4 + 4,
          "a text is not much longer than its body");
  if (body && body->isDamaged)
    RequireSame(TextOfIntactDocument(bytes), "", "a damaged document has no text");
  return 0;
}

}  // namespace quorvel::fuzz
