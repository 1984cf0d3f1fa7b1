// The runs in tests/data/runs/ write exactly the bytes that are kept beside them.

#include <gtest/gtest.h>

#include <regex>

#include "input/file_kind.h"
#include "naive/places.h"
#include "support/run_program.h"
#include "util/ansi.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

const std::filesystem::path RUNS = QUORVEL_TEST_DATA "/runs";

// A file that a run writes, its name among the kept files, and the text before the date in it.
struct WrittenFile {
  std::string name;
  const char* kept;
  std::string mark;
};
const WrittenFile OUTPUT = {"out.txt", "output", " file created using Quorvel (V.21.36): "};
const WrittenFile INDEX = {"input.qvl.ndx", "index", "\r\n"};

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

// Replaces the date after the first `mark` by "<date>".
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
  std::filesystem::copy(kept, folder.Path("."));
  const auto files = folder.Files();
  const int status =
      RunProgram(folder, QUORVEL_CLI, "--settings case.lvz --encoding auto --answer yes");
  EXPECT_EQ(std::to_string(status) + "\n", BytesOf(kept / "expected/status")) << folder.Read("err");
  auto expected = files;
  expected.erase(OUTPUT.name);
  auto found = folder.Files();
  for (const auto& [name, file, mark] : {OUTPUT, INDEX}) {
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

// True if these bytes have the same letters in Unicode as in Windows-1252.
bool HasLettersOfBoth(std::string_view bytes) {
  return bytes.find_first_of("\x83\x8E\x9E\xAA\xB5\xBA") == std::string_view::npos;
}

// True if a document has the same text as Windows-1252 and, converted to UTF-8, as Unicode. The
// Unicode reading knows more entities, and LF ends a line there.
bool ReadsAlike(const std::filesystem::path& path) {
  const std::string bytes = BytesOf(path);
  if (bytes.starts_with("PK")) return false;
  const InputBytes input("input" + path.extension().string(), bytes);
  return DetectTextEncoding(input, true) == TextEncoding::ansi && !DeclaresUtf8(bytes) &&
         HasLettersOfBoth(bytes) && bytes.find('&') == std::string::npos &&
         naive::Replace(bytes, "\r\n", "").find('\n') == std::string::npos;
}

// The files of a run whose input is converted to UTF-8 and read as Unicode. Nothing if the text
// would differ.
void ExpectSameInUnicode(const std::filesystem::path& kept, int& compared) {
  const TestFolder folder;
  std::filesystem::copy(kept, folder.Path("."));
  std::filesystem::remove(folder.Path(INDEX.name));
  for (const auto& [name, bytes] : folder.Files()) {
    if (!name.starts_with("input.")) continue;
    if (!ReadsAlike(kept / name)) return;
    (void)folder.Write(name, EncodeUtf8(DecodeAnsi(bytes)));
  }
  const int status =
      RunProgram(folder, QUORVEL_CLI, "--settings case.lvz --encoding unicode --answer yes");
  EXPECT_EQ(std::to_string(status) + "\n", BytesOf(kept / "expected/status")) << folder.Read("err");
  if (!exists(kept / "expected/output")) return;
  // The digest before the date differs.
  const auto listing = [](const std::string& bytes) {
    return bytes.substr(std::min(bytes.find("<date>"), bytes.size()));
  };
  EXPECT_EQ(listing(WithoutDate(folder.Read(OUTPUT.name), OUTPUT.mark)),
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
