#include "output/concordance_file.h"

#include <algorithm>
#include <array>

#include "files/file_system.h"
#include "util/ansi.h"
#include "util/version.h"

namespace quorvel {
namespace {

// What the file holds, as its header names it.
std::string KindWord(Mode mode) { return mode == Mode::create ? "Concordance" : "Search results"; }

bool MayReplace(const ConcordanceSettings& settings, const std::string& target, UserInterface& ui) {
  if (!settings.warnOnOverwrite || !FileExists(target)) return true;
  const std::string text = "A " + LowerAscii(KindWord(settings.mode)) + " file \r\n" + target +
                           "\r\nalready exists.  Do you wish to overwrite it?";
  return ui.Ask({text, "File exists", Icon::none, Buttons::yesNo, Answer::yes}) == Answer::yes;
}

}  // namespace

std::string OutputName(Mode mode) { return KindWord(mode) + " file"; }

std::string WritingFailed(Mode mode) {
  return "An error occurred when creating " + LowerAscii(OutputName(mode)) + ".";
}

std::string VersionText() {
  return std::to_string(VERSION_MAJOR) + "." + std::to_string(VERSION_MINOR) + "6";
}

std::string DateAndTimeText(std::time_t time) {
  std::tm local = {};
#ifdef _WIN32
  localtime_s(&local, &time);
#else
  localtime_r(&time, &local);
#endif
  std::array<char, 32> text{};
  const std::size_t length = std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &local);
  return {text.data(), length};
}

const std::string& OutputFileOf(const ConcordanceSettings& settings) {
  return settings.mode == Mode::create ? settings.outputFile : settings.searchResultsFile;
}

std::string FileHeader(const ConcordanceSettings& settings, std::string_view digest,
                       std::time_t time) {
  std::string header = EncodeAnsi(DecodeUtf8("Input file: " + settings.inputFile));
  header += LINE_END;
  if (settings.mode == Mode::create) {
    header.append("MD5 message digest of input file: ").append(digest).append(LINE_END);
  }
  return header.append(KindWord(settings.mode))
      .append(" file created using Quorvel (V.")
      .append(VersionText())
      .append("): ")
      .append(DateAndTimeText(time))
      .append(LINE_END)
      .append(LINE_END);
}

bool WriteFileBytes(const ConcordanceSettings& settings, std::string_view digest,
                    std::string_view outputText, std::time_t time, const ByteSink& write) {
  // The listing is a record like the lines of the header: it ends in one more line end.
  return write(FileHeader(settings, digest, time)) && write(outputText) && write(LINE_END);
}

FileWriting WriteOutputFile(const ConcordanceSettings& settings, UserInterface& ui,
                            const std::function<bool(const ByteSink&)>& produce) {
  const std::string& target = OutputFileOf(settings);
  if (target.empty() || !MayReplace(settings, target, ui)) return {};
  OutputFile file(target);
  const auto write = [&file, &ui](std::string_view bytes) {
    // A long listing takes long enough for the user to want the window meanwhile.
    constexpr std::size_t PIECE = std::size_t{1} << 20U;
    for (; !bytes.empty(); bytes.remove_prefix(std::min(PIECE, bytes.size()))) {
      if (!file.Write(bytes.substr(0, PIECE))) return false;
      ui.YieldNow();
    }
    return true;
  };
  const bool whole = file.Error().empty() && produce(write);
  // To replace a large file the system takes its time, and more so on a disk that is busy.
  ui.YieldAtOnce();
  if (!whole || !file.Commit()) return {FileOutcome::failed, target + ": " + file.Error()};
  return {FileOutcome::written, {}};
}

FileWriting WriteConcordanceFile(const ConcordanceSettings& settings, std::string_view digest,
                                 std::string_view outputText, UserInterface& ui) {
  FileWriting writing = WriteOutputFile(settings, ui, [&](const ByteSink& write) {
    return WriteFileBytes(settings, digest, outputText, std::time(nullptr), write);
  });
  if (writing.outcome == FileOutcome::written && settings.mode == Mode::create) {
    ui.PopUp("Concordance file written");
  }
  return writing;
}

}  // namespace quorvel
