// Any file in the place of a word-processor document: archive, body and temporary folder.

#include "fuzz_input.h"
#include "input/docx_text.h"
#include "util/silent_interface.h"

namespace quorvel::fuzz {
namespace {

// Answers every question in one way.
struct AnsweringInterface : SilentInterface {
  Answer answer = Answer::no;
  Answer Ask(const Message& /*message*/) override { return answer; }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using enum ExtractionCode;
  static const FuzzFolder folder;
  FuzzInput input(data, size);
  // Small limits: what a body of some megabytes does is no different, only slower.
  const ExtractOptions options = {input.Flag(), input.Flag(), {65536, 4096}};
  AnsweringInterface ui;
  if (input.Flag()) ui.answer = Answer::yes;
  const std::string path = folder.Write("a.docx", input.Rest());
  const ExtractedText got = ExtractDocumentText(path, "QVL", options, ui);
  Require(folder.Count() == 1, "the temporary folder is gone");
  Require(got.code == success || got.text.empty(), "a failure gives no text");
  Require(got.code != noTemporaryFolder && got.code != unwritable && got.code != stopped,
          "no document is to blame for what only the system or the user does");
  Require(got.code != damaged || !options.askOnBadChecksum, "damage is asked about");
  Require(got.text.size() <= options.limits.hard / 3 * 4 + 4, "the limit holds");
  return 0;
}

}  // namespace quorvel::fuzz
