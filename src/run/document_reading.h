// Makes a document from the bytes of an input, and asks the user the questions that arise.
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
  ReadingOptions options = {};                     // the encoding may be decided differently
  std::shared_ptr<const InputDigest> digest = {};  // of the input; null when not wanted
  BodyLimits limits;
};

// Makes the document of an input of any kind. Sets `inputIsUtf8` to the encoding that was used.
// Returns null when the run cannot continue: the user has been told, has declined, or has requested
// a stop. Takes the bytes by value, so that they are released as early as possible.
[[nodiscard]] std::shared_ptr<const Document> ObtainDocument(InputBytes input,
                                                             const ReadingRequest& request,
                                                             bool& inputIsUtf8,
                                                             bool& macNoticeShown,
                                                             Conversation& ui);

}  // namespace quorvel
