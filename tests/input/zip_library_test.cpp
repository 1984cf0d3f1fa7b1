#include <gtest/gtest.h>

#include "support/platform.h"
#include "support/run_program.h"
#include "support/zip_builder.h"

namespace quorvel {

TEST(ZipLibrary, IsNeededForArchivesAlone) {
  SKIP_ON_WINDOWS("the programs contain the library");
  const TestFolder folder;
  // Hides that of the system, whatever its version.
  for (int version = 1; version < 10; ++version) {
    (void)folder.Write("libzip.so." + std::to_string(version), "not a library");
  }
  const char* const before = "LD_LIBRARY_PATH=.";
  (void)folder.Write("a.txt", "the cat and the dog\r\n");
  EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, "a.txt", before), 0);
  const std::pair<const char*, const char*> rows[] = {
      {"a.docx", ""}, {"a.docx", " --encoding unicode"}, {"a.epub", " --encoding unicode"}};
  for (const auto& [name, options] : rows) {
    (void)folder.Write(name, ZipArchive({{"a", "b"}}));
    EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, std::string(name) + options, before), 1);
    const std::string said = folder.Read("err");
    EXPECT_TRUE(said.starts_with("quorvel-cli: File " + std::string(name) +
                                 " cannot be unpacked: ./libzip.so."))
        << said;
  }
}

}  // namespace quorvel
