// A folder for one test, which is removed with its contents.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace quorvel {

namespace fs = std::filesystem;

// Names are bytes, UTF-8 on Windows.
inline fs::path PathOfBytes(std::string_view bytes) {
  return std::u8string(bytes.begin(), bytes.end());
}

class TestFolder {
 public:
  // A folder that an earlier process has left is not used.
  TestFolder() {
    static std::atomic<int> made = 0;
    const std::string name = "quorvel-" + std::to_string(::getpid()) + "-";
    do {
      path_ = fs::path(testing::TempDir()) / (name + std::to_string(made++));
    } while (!fs::create_directories(path_));
  }
  ~TestFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;

  [[nodiscard]] std::string Path(std::string_view name) const {
    const std::u8string path = Place(name).u8string();
    return {path.begin(), path.end()};
  }

  // Writes a file and returns its path.
  [[nodiscard]] std::string Write(std::string_view name, std::string_view bytes) const {
    std::ofstream(Place(name), std::ios::binary).write(bytes.data(), std::ssize(bytes));
    return Path(name);
  }

  [[nodiscard]] std::string Read(std::string_view name) const {
    std::ifstream file(Place(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  // The name of each file in the folder and below it, with its bytes, or the target of a link.
  // Without "out" and "err", which RunProgram writes.
  [[nodiscard]] std::map<std::string, std::string> Files() const {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(path_)) {
      const std::string name = entry.path().lexically_relative(path_).generic_string();
      if (entry.is_symlink()) {
        files[name] = "link to " + fs::read_symlink(entry.path()).string();
      } else if (entry.is_regular_file() && name != "out" && name != "err") {
        files[name] = Read(name);
      }
    }
    return files;
  }

  // How many files and folders it contains.
  [[nodiscard]] std::ptrdiff_t Count() const {
    return std::distance(fs::directory_iterator(path_), {});
  }

 private:
  [[nodiscard]] fs::path Place(std::string_view name) const {
    return (path_ / PathOfBytes(name)).make_preferred();
  }

  fs::path path_;
};

}  // namespace quorvel
