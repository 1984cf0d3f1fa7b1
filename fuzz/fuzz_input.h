// Shared parts of the fuzz targets: parsing of options at the front of an input, a folder for
// files, and checks that end the program when two implementations differ.
//
// A target is one file with the function LLVMFuzzerTestOneInput, which must accept any bytes.
// `./dev fuzz` runs it on inputs made from fuzz/seeds/ and the dictionary of the target; the tests
// run it on the inputs in fuzz/seeds/ and fuzz/corpus/. Inputs that once failed are kept in
// fuzz/corpus/.
#pragma once

#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel::fuzz {

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

// Splits an input from its front.
class FuzzInput {
 public:
  FuzzInput(const std::uint8_t* data, std::size_t size)
      : rest_(reinterpret_cast<const char*>(data), size) {}  // NOLINT(*-reinterpret-cast)

  // A number from 0 to `count` - 1, taken from the next byte, or 0 at the end. "0" to "9" give
  // their own values, so that seeds can be typed.
  int Number(int count) {
    if (rest_.empty()) return 0;
    const auto byte = static_cast<std::uint8_t>(rest_.front() - '0');
    rest_.remove_prefix(1);
    return byte % count;
  }

  bool Flag() { return Number(2) == 1; }

  // The text up to the next line feed, which is skipped.
  std::string Line() {
    const std::string_view line = rest_.substr(0, rest_.find('\n'));
    rest_.remove_prefix(std::min(line.size() + 1, rest_.size()));
    return std::string(line);
  }

  [[nodiscard]] std::string Rest() const { return std::string(rest_); }

 private:
  std::string_view rest_;
};

// Ends the program with a message if `holds` is false.
inline void Require(bool holds, std::string_view rule) {
  if (holds) return;
  std::cerr << "Broken: " << rule << '\n';
  std::abort();
}

inline void RequireSame(std::string_view got, std::string_view expected, std::string_view rule) {
  if (got != expected) std::cerr << "Got:\n" << got << "\nExpected:\n" << expected << '\n';
  Require(got == expected, rule);
}

// A folder for the files of a target and the temporary folders of the core. It exists until the
// program ends.
class FuzzFolder {
 public:
  FuzzFolder() {
    std::filesystem::create_directory(path_);
    ::setenv("TMPDIR", path_.c_str(), 1);  // NOLINT(concurrency-mt-unsafe)
  }
  ~FuzzFolder() { std::filesystem::remove_all(path_); }
  FuzzFolder(const FuzzFolder&) = delete;
  FuzzFolder& operator=(const FuzzFolder&) = delete;

  // Writes a file and returns its path.
  [[nodiscard]] std::string Write(std::string_view name, std::string_view bytes) const {
    std::ofstream(path_ / name, std::ios::binary).write(bytes.data(), std::ssize(bytes));
    return (path_ / name).string();
  }

  // The number of files and folders in it.
  [[nodiscard]] std::ptrdiff_t Count() const {
    return std::distance(std::filesystem::directory_iterator(path_), {});
  }

 private:
  std::filesystem::path path_ =
      std::filesystem::temp_directory_path() / ("quorvel-fuzz-" + std::to_string(::getpid()));
};

}  // namespace quorvel::fuzz
