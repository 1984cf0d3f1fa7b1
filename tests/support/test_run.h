// A run on one file, with a scripted conversation.
#pragma once

#include "run/session.h"
#include "support/scanned_text.h"
#include "support/scripted_conversation.h"
#include "support/test_folder.h"

namespace quorvel {

struct TestRun {
  TestFolder folder;
  ScriptedConversation ui;
  Session session;
  ConcordanceSettings& settings = session.Settings();

  explicit TestRun(std::string_view bytes, std::string_view name = "a.txt",
                   SessionOptions options = {})
      : session(ui, std::move(options)) {
    settings.inputFile = folder.Write(name, bytes);
    settings.outputFile = folder.Path("out.txt");
  }

  RunOutcome Go() { return session.RunConcordance(); }

  // The composed listing of the last run, or an empty text if there is none.
  [[nodiscard]] std::string ListedText() const {
    SilentProgress nobody;
    const auto& listing = session.CurrentListing();
    return listing == nullptr ? "" : Composed(*listing, nobody);
  }

  // The text of the output file after its header.
  [[nodiscard]] std::string Entries() const {
    const std::string bytes = folder.Read("out.txt");
    const std::size_t header = bytes.find("\r\n\r\n");
    return header == std::string::npos ? bytes : bytes.substr(header + 4);
  }
};

}  // namespace quorvel
