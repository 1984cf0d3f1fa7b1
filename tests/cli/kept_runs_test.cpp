// The runs that tests/data/runs/ keeps leave behind what is kept with them, byte for byte.

#include <gtest/gtest.h>

#include <regex>

#include "support/run_program.h"

namespace quorvel {
namespace {

const std::filesystem::path RUNS = QUORVEL_TEST_DATA "/runs";

// A file that a run writes, its name among what is kept, and what stands there before the date.
const std::tuple<std::string, const char*, std::string> WRITTEN[] = {
    {"out.txt", "output", " file created using Quorvel (V.21.36): "},
    {"input.qvl.ndx", "index", "\r\n"}};

std::vector<std::string> KeptRuns() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(RUNS)) {
    if (entry.is_directory()) names.push_back(entry.path().filename().string());
  }
  return names;
}

std::string BytesOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

// The bytes with "<date>" for the date behind the first `mark`.
std::string WithoutDate(std::string bytes, std::string_view mark) {
  const std::regex date(R"(\d{4}-\d\d-\d\d \d\d:\d\d)");
  const std::size_t marked = bytes.find(mark);
  if (marked == std::string::npos) return bytes;
  const std::size_t start = marked + mark.size();
  const bool isDate = std::regex_match(bytes.substr(start, 16), date);
  return isDate ? bytes.replace(start, 16, "<date>") : bytes;
}

class KeptRun : public testing::TestWithParam<std::string> {};

TEST_P(KeptRun, LeavesWhatIsKeptWithIt) {
  const std::filesystem::path kept = RUNS / GetParam();
  const TestFolder folder;
  std::filesystem::copy(kept, folder.Path(""));
  const auto files = folder.Files();
  const int status =
      RunProgram(folder, QUORVEL_CLI, "--settings case.lvz --encoding auto --answer yes");
  EXPECT_EQ(std::to_string(status) + "\n", BytesOf(kept / "expected/status")) << folder.Read("err");
  auto expected = files;
  expected.erase("out.txt");
  auto found = folder.Files();
  for (const auto& [name, file, mark] : WRITTEN) {
    if (exists(kept / "expected" / file)) expected[name] = BytesOf(kept / "expected" / file);
    if (found.contains(name)) found[name] = WithoutDate(found[name], mark);
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
