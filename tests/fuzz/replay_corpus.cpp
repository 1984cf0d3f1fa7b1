// Runs a fuzz target on every file in the given folders, so that no old fault returns. The last
// name on standard error is that of the failing input.

#include "files/read_file.h"
#include "fuzz_input.h"

int main(int argc, char** argv) {
  int inputs = 0;
  for (int i = 1; i < argc; ++i) {
    for (const auto& file : std::filesystem::directory_iterator(argv[i])) {
      std::cerr << file.path().string() << '\n';
      quorvel::SilentProgress nobody;
      const auto input = quorvel::ReadInput(file.path().string(), nobody);
      quorvel::fuzz::Require(bool(input), "an input can be read");
      // A separate copy, so that a sanitizer notices access before or after the bytes.
      const std::vector<std::uint8_t> bytes(input->View().begin(), input->View().end());
      quorvel::fuzz::LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
      ++inputs;
    }
  }
  quorvel::fuzz::Require(inputs > 0, "there are inputs");
  return 0;
}
