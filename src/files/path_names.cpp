#include "files/path_names.h"

#include <algorithm>
#include <array>

#include "util/ascii.h"

namespace quorvel {
namespace {

constexpr std::string_view CONCORDANCE_ENDING = "qvl.conc.txt";
constexpr std::string_view INDEX_ENDING = "qvl.ndx";

constexpr std::array<std::string_view, 11> TEXT_FILE_EXTENSIONS = {
    "prn", "csv", "xhtml", "xhtm", "shtml", "shtm", "html", "htm", "xml", "log", "txt"};

std::string WithEnding(std::string_view inputFile, std::string_view ending) {
  const std::string_view extension = ExtensionOf(inputFile);
  std::string name(inputFile.substr(0, inputFile.size() - extension.size()));
  if (extension.empty()) name += '.';
  return name.append(ending);
}

}  // namespace

std::string_view ExtensionOf(std::string_view path) {
  const std::size_t folderEnd = path.find_last_of("\\/");
  const std::string_view name =
      folderEnd == std::string_view::npos ? path : path.substr(folderEnd + 1);
  const std::size_t dot = name.rfind('.');
  return dot == std::string_view::npos ? std::string_view{} : name.substr(dot + 1);
}

std::string LowerExtensionOf(std::string_view path) { return LowerAscii(ExtensionOf(path)); }

bool PathNamesHtml(std::string_view path) {
  return LowerAscii(path).find("htm") != std::string::npos;
}

bool HasTextFileExtension(std::string_view path) {
  const std::string extension = LowerExtensionOf(path);
  return std::find(TEXT_FILE_EXTENSIONS.begin(), TEXT_FILE_EXTENSIONS.end(), extension) !=
         TEXT_FILE_EXTENSIONS.end();
}

std::string DefaultConcordanceFileName(std::string_view inputFile) {
  return WithEnding(inputFile, CONCORDANCE_ENDING);
}

std::string DefaultIndexFileName(std::string_view inputFile) {
  return WithEnding(inputFile, INDEX_ENDING);
}

std::string DefaultRowsFileName(std::string_view inputFile, std::string_view extension) {
  return WithEnding(inputFile, "qvl.conc." + std::string(extension));
}

bool IsConcordanceFileName(std::string_view path) {
  return LowerAscii(path).ends_with(CONCORDANCE_ENDING);
}

bool IsIndexFileName(std::string_view path) { return LowerAscii(path).ends_with(INDEX_ENDING); }

}  // namespace quorvel
