// The runs that tests/data/runs/ keeps leave behind what is kept with them, byte for byte.

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "input/input_file.h"
#include "output/concordance_file.h"
#include "support/run_program.h"
#include "support/test_folder.h"
#include "util/ansi.h"

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

// Whether Unicode has no other letters than Windows-1252 in these bytes.
bool HasLettersOfBoth(std::string_view bytes) {
  return bytes.find_first_of("\x83\x8E\x9E\xAA\xB5\xBA") == std::string_view::npos;
}

// Whether a text or page says the same as Windows-1252 and, transcoded, as Unicode: there more
// entities are known, and an LF ends a line.
bool ReadsAlike(const std::filesystem::path& path) {
  const std::string bytes = BytesOf(path);
  if (bytes.starts_with("PK")) return false;
  std::string withoutLineEnds = bytes;
  for (std::size_t i = 0; (i = withoutLineEnds.find("\r\n", i)) != std::string::npos;) {
    withoutLineEnds.erase(i, 2);
  }
  const InputBytes input("input" + path.extension().string(), bytes);
  return DetectTextEncoding(input, true) == TextEncoding::ansi && !DeclaresUtf8(bytes) &&
         HasLettersOfBoth(bytes) && bytes.find('&') == std::string::npos &&
         withoutLineEnds.find('\n') == std::string::npos;
}

// What a run leaves whose input comes as UTF-8 and is read as Unicode; nothing where that says
// something else.
void ExpectSameInUnicode(const std::filesystem::path& kept, int& compared) {
  const TestFolder folder;
  std::filesystem::copy(kept, folder.Path(""));
  std::filesystem::remove(folder.Path(INDEX));
  for (const auto& [name, bytes] : folder.Files()) {
    if (!name.starts_with("input.")) continue;
    if (!ReadsAlike(kept / name)) return;
    (void)folder.Write(name, EncodeUtf8(DecodeAnsi(bytes)));
  }
  const int status =
      RunProgram(folder, QUORVEL_CLI, "--settings case.lvz --encoding unicode --answer yes");
  EXPECT_EQ(std::to_string(status) + "\n", BytesOf(kept / "expected/status")) << folder.Read("err");
  if (!exists(kept / "expected/output")) return;
  // The digest before the date is another one.
  const auto listing = [](const std::string& bytes) {
    return bytes.substr(std::min(bytes.find("<date>"), bytes.size()));
  };
  EXPECT_EQ(listing(WithoutDate(folder.Read(OUTPUT), OUTPUT_DATE)),
            EncodeUtf8(DecodeAnsi(listing(BytesOf(kept / "expected/output")))));
  ++compared;
}

TEST(KeptRuns, AreTheSameInUnicode) {
  int compared = 0;
  for (const std::string& name : KeptRuns()) {
    SCOPED_TRACE(name);
    ExpectSameInUnicode(RUNS / name, compared);
  }
  EXPECT_GE(compared, 70);
}

INSTANTIATE_TEST_SUITE_P(CommandLine, KeptRun, testing::ValuesIn(KeptRuns()),
                         [](const auto& run) { return run.param; });

TEST(KeptRuns, AreThere) { EXPECT_GE(KeptRuns().size(), 240U); }

}  // namespace
}  // namespace quorvel
