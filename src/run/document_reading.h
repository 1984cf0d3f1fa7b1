// From the bytes of an input to its document, with the questions that come up on the way.
#pragma once

#include <memory>

#include "files/read_file.h"
#include "input/document.h"
#include "input/docx_text.h"
#include "run/conversation.h"
#include "run/input_check.h"

namespace quorvel {

struct ReadingRequest {
  EncodingChoice encodingChoice = EncodingChoice::confirm;
  ReadingOptions options = {};                     // of which the encoding may be settled otherwise
  std::shared_ptr<const InputDigest> digest = {};  // of the input; null where nobody wants it
  BodyLimits limits;
};

// The document of an input, of either kind. `inputIsUtf8` takes the encoding that it was settled to
// be. Null when the run cannot go on: the user was told, or has declined, or the stop request
// stands. Takes the bytes, so that they can go as soon as they are done with.
[[nodiscard]] std::shared_ptr<const Document> ObtainDocument(InputBytes input,
                                                             const ReadingRequest& request,
                                                             bool& inputIsUtf8,
                                                             bool& macNoticeShown,
                                                             Conversation& ui);

}  // namespace quorvel
