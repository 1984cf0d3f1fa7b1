// The runs that tests/data/runs/ keeps leave behind what is kept with them, byte for byte.

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "output/concordance_file.h"
#include "support/run_program.h"
#include "support/test_folder.h"

namespace quorvel {
namespace {

const std::filesystem::path RUNS = QUORVEL_TEST_DATA "/runs";

constexpr const char* OUTPUT = "out.txt";
constexpr const char* INDEX = "input.qvl.ndx";

// What stands before the date in an output and in an index.
const std::string OUTPUT_DATE = " file created using Quorvel (V." + VersionText() + "): ";
const std::string INDEX_DATE = "\r\n";

std::vector<std::string> KeptRuns() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(RUNS)) {
    if (entry.is_directory()) names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string BytesOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

// The bytes with "<date>" for the date behind the first `mark`.
std::string WithoutDate(std::string bytes, std::string_view mark) {
  constexpr std::string_view FORM = "dddd-dd-dd dd:dd";
  const std::size_t marked = bytes.find(mark);
  if (marked == std::string::npos) return bytes;
  const std::size_t start = marked + mark.size();
  const std::string found = bytes.substr(start, FORM.size());
  const bool isDate =
      found.size() == FORM.size() && std::ranges::equal(found, FORM, [](char ch, char form) {
        return form == 'd' ? ch >= '0' && ch <= '9' : ch == form;
      });
  return isDate ? bytes.replace(start, FORM.size(), "<date>") : bytes;
}

class KeptRun : public testing::TestWithParam<std::string> {};

TEST_P(KeptRun, LeavesWhatIsKeptWithIt) {
  const std::filesystem::path kept = RUNS / GetParam();
  const TestFolder folder;
  std::filesystem::copy(kept, folder.Path(""));
  auto expected = folder.Files();
  expected.erase(OUTPUT);
  for (const auto& [name, file] : {std::pair(OUTPUT, "output"), std::pair(INDEX, "index")}) {
    if (exists(kept / "expected" / file)) expected[name] = BytesOf(kept / "expected" / file);
  }
  const int status =
      RunProgram(folder, QUORVEL_CLI, "--settings case.lvz --encoding auto --answer yes");
  EXPECT_EQ(std::to_string(status) + "\n", BytesOf(kept / "expected/status")) << folder.Read("err");
  auto found = folder.Files();
  for (const auto& [name, date] : {std::pair(OUTPUT, OUTPUT_DATE), std::pair(INDEX, INDEX_DATE)}) {
    if (found.contains(name)) found[name] = WithoutDate(found[name], date);
  }
  for (const auto& [name, bytes] : expected) {
    EXPECT_TRUE(found.contains(name)) << "no " << name;
    EXPECT_TRUE(found[name] == bytes) << name;
    found.erase(name);
  }
  for (const auto& file : found) ADD_FAILURE() << file.first << " should not be there";
}

INSTANTIATE_TEST_SUITE_P(CommandLine, KeptRun, testing::ValuesIn(KeptRuns()),
                         [](const auto& run) { return run.param; });

TEST(KeptRuns, AreThere) { EXPECT_GE(KeptRuns().size(), 240U); }

}  // namespace
}  // namespace quorvel
