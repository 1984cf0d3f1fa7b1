// Reads the XML of a document's body with the prefix that the document declares.

#include "fuzz_input.h"
#include "input/docx_text.h"
#include "naive/naive_forms.h"
#include "naive/places.h"

namespace quorvel::fuzz {
namespace {

// The 0-based index of the first run start, which is followed by a blank or ">", or npos.
std::size_t RunStart(const std::string& xml, const std::string& prefix) {
  const std::string start = "<" + prefix + "t";
  return std::min(xml.find(start + " "), xml.find(start + ">"));
}

// The text of one run in the result.
std::string RunText(std::string run) {
  if (run.find_first_not_of(' ') == std::string::npos) return " ";
  const std::pair<const char*, const char*> entities[] = {
      {"&amp;", "&"}, {"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&apos;", "'"}};
  for (const auto& [entity, character] : entities) run = naive::Replace(run, entity, character);
  return naive::PlainPunctuation(naive::RepairUtf8(run));
}

// The naive form: cuts the body at its run ends, and each piece contains the run that ends it.
std::string ReadNaively(const std::string& xml, const std::string& prefix) {
  const std::string runEnd = "</" + prefix + "t>";
  std::string text;
  for (std::size_t begin = 0, end = 0; (end = xml.find(runEnd, begin)) != std::string::npos;) {
    const std::string piece = xml.substr(begin, end - begin);
    const std::size_t start = RunStart(piece, prefix);
    if (start == std::string::npos) break;
    const std::string between = piece.substr(0, start);
    const bool broken = begin > 0 && (between.find("<" + prefix + "br/>") != std::string::npos ||
                                      between.find("</" + prefix + "p>") != std::string::npos);
    const std::size_t mark = std::min(piece.find('>', start), piece.size() - 1);
    text += RunText(std::string(broken ? 1 : 0, ' ').append(piece, mark + 1));
    begin = end + runEnd.size();
  }
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string xml = FuzzInput(data, size).Rest();
  SilentProgress nobody;
  DocumentRuns runs(xml);
  Require(runs.Read(nobody), "it is not stopped");
  RequireSame(runs.Text(), ReadNaively(xml, WordPrefixOf(xml)),
              "DocumentRuns equals its naive form");
  return 0;
}

}  // namespace quorvel::fuzz
