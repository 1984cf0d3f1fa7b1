// Feeds a fuzz target with every file of the folders that are named: what once failed must not
// fail again. The last name on the error output is that of the input at fault.

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
      // Bytes of their own, so that nothing before or behind them may be looked at.
      const std::vector<std::uint8_t> bytes(input->View().begin(), input->View().end());
      quorvel::fuzz::LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
      ++inputs;
    }
  }
  quorvel::fuzz::Require(inputs > 0, "there are inputs");
  return 0;
}
