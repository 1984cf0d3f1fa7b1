#include "ui/window_test.h"

namespace quorvel {
namespace {

using Refusals = WindowTest;

TEST_F(Refusals, OfAnInputLeaveItsBoxEmpty) {
  const std::string listing = folder_.Write("a.QVL.conc.txt", HARBOUR);
  const std::string index = folder_.Write("a.qvl.ndx", HARBOUR);
  const std::string missing = folder_.Path("missing.txt");
  const std::string fake = folder_.Write("fake.docx", "no archive at all");
  const std::pair<std::string, Box> rows[] = {
      {listing, Tells("Invalid input", "This is an QVL concordance file.")},
      {index, Tells("Invalid input", "This is an QVL index file.")},
      {missing, Tells("Fatal error", "File " + missing + " not found.", Icon::information)},
      {fake, Tells("Quorvel", "The file " + fake +
                                  "\nhas a 'docx' extension but does not appear to be an "
                                  "MS Word 'docx' file.")},
  };
  OpenText("good.txt");
  for (const auto& [path, refusal] : rows) {
    SCOPED_TRACE(path);
    Type("txbFile_0", path, {refusal});
    EXPECT_EQ(Text("txbFile_0") + Text("lblInputFileSize"), "");
  }
}

}  // namespace
}  // namespace quorvel
