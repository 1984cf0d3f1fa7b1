// What the user, or the system, has left the program little of: room for temporary files,
// memory. The built program does what it was asked for or says what stands in its way. Not for
// Windows, where a shell sets no limits.

#include <gtest/gtest.h>

#include "support/made_texts.h"
#include "support/memory_limit.h"
#include "support/run_program.h"
#include "support/test_folder.h"
#include "support/zip_builder.h"

namespace quorvel {
namespace {

TEST(Limits, OfTheFolderForTemporaryFilesAreTold) {
  const std::string text = Repeated("The ship lay in the harbour.\r\n", 100);
  const std::string none = "Unable to create temporary folder.";
  const std::pair<const char*, std::string> rows[] = {
      {"export TMPDIR=no; exec", none},
      {"export TMPDIR=/proc/self; exec", none},
      {"export TMPDIR=.; ulimit -f 1; exec", "Unable to write to temporary folder."}};
  for (const auto& [before, said] : rows) {
    const TestFolder folder;
    (void)folder.Write("d.docx",
                       ZipArchive({{"word/document.xml", "<w:p><w:t>" + text + "</w:t></w:p>"}}));
    EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, "d.docx", before), 1);
    EXPECT_EQ(folder.Read("err"), "quorvel-cli: d.docx: " + said + "\n");
    EXPECT_EQ(folder.Count(), 3) << "d.docx, out and err";
  }
}

// Under a limit of memory that no such file fits into.
TEST(Limits, OfMemoryAreNoMatterToAnIndexThatIsNone) {
  if (!CAN_LIMIT_MEMORY) GTEST_SKIP() << "memory cannot be limited here";
  const TestFolder folder;
  (void)folder.Write("a.txt", "the cat and the dog\r\n");
  (void)folder.Write("a.qvl.ndx", "BD98C7E98FF936A8D5A9616930B0FAD0\r\n2026-11-22 10:00\r\n");
  std::filesystem::resize_file(folder.Path("a.qvl.ndx"), 1900U << 20U);
  EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, "a.txt --use-index -o -", "ulimit -v 400000;"), 0);
  EXPECT_EQ(folder.Read("err"),
            "quorvel-cli: a.txt: The index file was not made from this input file as it is now, "
            "so the input file will be scanned.\n");
}

}  // namespace
}  // namespace quorvel
