#include "cli/terminal_interface.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iostream>

#include "cli/platform.h"
#include "run/fault_texts.h"
#include "util/visible_text.h"

namespace quorvel {
namespace {

// A signal handler can access only globals.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
std::atomic<int> interrupted = 0;  // the signal that arrived, or 0
static_assert(std::atomic<int>::is_always_lock_free);

void NoteSignal(int signal) {
  interrupted = signal;
  std::signal(signal, SIG_DFL);
}

// The text with the line ends of a terminal.
std::string TerminalText(std::string_view text) {
  std::string result = VisibleLines(text);
  std::erase(result, '\r');
  return result;
}

// Joins the lines of a message with blanks.
std::string OneLine(std::string_view text) {
  std::string line;
  bool atLineStart = false;
  for (const char ch : VisibleLines(text)) {
    if (ch == '\r' || (atLineStart && ch == ' ')) continue;
    atLineStart = ch == '\n';
    if (atLineStart) line.erase(line.find_last_not_of(' ') + 1);
    line += atLineStart ? ' ' : ch;
  }
  return line;
}

void Replace(std::string& text, std::string_view from, std::string_view to) {
  for (std::size_t place = text.find(from); place != std::string::npos;
       place = text.find(from, place + to.size())) {
    text.replace(place, from.size(), to);
  }
}

Answer AnswerBy(AnswerPolicy policy, const Message& message) {
  if (policy == AnswerPolicy::preset) return message.preset;
  return policy == AnswerPolicy::yes ? Answer::yes : Answer::no;
}

Answer AskAtTerminal(const Message& message) {
  const bool mayCancel = message.buttons == Buttons::yesNoCancel;
  const std::string choices = mayCancel ? "yes, no or cancel" : "yes or no";
  const std::string preset = message.preset == Answer::yes ? "yes" : "no";
  std::string line;
  while (interrupted == 0) {
    std::cerr << choices << " [" << preset << "]? " << std::flush;
    while (interrupted == 0 && !HasInput()) {
    }
    if (interrupted != 0) break;
    if (!std::getline(std::cin, line) || line.empty()) return message.preset;
    if (line[0] == 'y' || line[0] == 'Y') return Answer::yes;
    if (line[0] == 'n' || line[0] == 'N') return Answer::no;
    if (mayCancel && (line[0] == 'c' || line[0] == 'C')) return Answer::cancel;
  }
  // The run stops at its next check for a stop; until then nothing may be replaced.
  return mayCancel ? message.preset : Answer::no;
}

}  // namespace

TerminalInterface::TerminalInterface(std::optional<AnswerPolicy> policy, bool quiet,
                                     std::string_view inputFile)
    : policy_(policy),
      quiet_(quiet),
      inputFile_(VisibleName(inputFile)),
      showsProgress_(!quiet && IsTerminal(Stream::error)) {}

TerminalInterface::TerminalInterface(std::optional<AnswerPolicy> policy, std::string_view inputFile,
                                     const std::atomic<bool>& stopped)
    : policy_(policy.value_or(AnswerPolicy::preset)),
      quiet_(true),
      inputFile_(VisibleName(inputFile)),
      showsProgress_(false),
      stopped_(&stopped) {}

void TerminalInterface::AppendOutput(std::string_view text) {
  if (showsProgress_) std::cerr << TerminalText(text);
}

void TerminalInterface::ShowBar(std::string_view caption) {
  if (!showsProgress_) return;
  if (caption.empty()) return ClearBar();
  std::cerr << '\r' << caption << std::flush;
  barShown_ = true;
}

Answer TerminalInterface::Ask(const Message& message) {
  const bool isMessage = message.buttons == Buttons::ok;
  if (!isMessage || message.icon != Icon::none) {
    Say(message.text);
  } else if (!quiet_) {
    WriteLine(message.text);
  }
  if (isMessage) return Answer::ok;
  if (policy_) return AnswerBy(*policy_, message);
  const bool canAsk = IsTerminal(Stream::input) && IsTerminal(Stream::error);
  return canAsk ? AskAtTerminal(message) : message.preset;
}

void TerminalInterface::TellOfLostCharacters(std::int64_t count, Reading reading) {
  const std::string advice =
      count == 1 ? "; --encoding unicode keeps it" : "; --encoding unicode keeps them";
  Say(LostCharactersText(count, reading) + (reading == Reading::unicode ? "" : advice));
}

void TerminalInterface::YieldNow() {
  if (stopped_ != nullptr) {
    if (*stopped_) RequestStop();
    return;
  }
  const int signal = interrupted;
  if (signal == 0) return;
  if (signal != SIGINT) throw EndRequested{signal};
  interrupted = 0;
  RequestStop();
}

void TerminalInterface::Say(std::string_view text) {
  const bool namesInput = text.find(inputFile_) != std::string_view::npos;
  WriteLine((namesInput ? "" : inputFile_ + ": ").append(text));
}

void TerminalInterface::SayOf(std::string_view path, std::string_view reason) {
  Say(VisibleName(path).append(": ").append(reason));
}

// Writes the line with a single call, so that lines of parallel runs are not mixed.
void TerminalInterface::WriteLine(std::string_view text) {
  ClearBar();
  std::string line = "quorvel-cli: " + OneLine(text) + '\n';
  if (!inputName_.empty()) Replace(line, inputFile_, inputName_);
  (void)Write(Stream::error, line);
}

bool TerminalInterface::WriteResult(std::string_view bytes) {
  if (resultFailed_) return false;
  const bool written = Write(Stream::output, bytes);
  resultFailed_ = !written && !StopRequested();
  return written;
}

// A reader may block for any time, and signals must still be handled.
bool TerminalInterface::Write(Stream stream, std::string_view bytes) {
  constexpr int MOST_REFUSALS = 5;  // in a row, after a stop request
  int refusals = 0;
  while (!bytes.empty() && refusals < MOST_REFUSALS) {
    const std::ptrdiff_t taken = WriteSome(stream, bytes);
    if (taken < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(taken));
    YieldNow();
    refusals = taken == 0 && StopRequested() ? refusals + 1 : 0;
  }
  return bytes.empty();
}

void TerminalInterface::ClearBar() {
  if (!barShown_) return;
  constexpr int WIDEST_BAR = 60;
  std::cerr << '\r' << std::string(WIDEST_BAR, ' ') << '\r' << std::flush;
  barShown_ = false;
}

// Text that does not fit in the line is cut off. Control characters are replaced by "?".
void SayNoMemory(const char* const* words, std::size_t count) {
  constexpr std::size_t ROOM = 4096;
  std::array<char, ROOM> line;
  std::size_t length = 0;
  const auto append = [&line, &length](std::string_view text) {
    for (const char ch : text.substr(0, line.size() - length)) {
      line.at(length++) = static_cast<unsigned char>(ch) < ' ' || ch == '\x7F' ? '?' : ch;
    }
  };
  append("quorvel-cli: ");
  append(NOT_ENOUGH_MEMORY);
  if (count > 0) append(" for");
  for (std::size_t i = 0; i < count; ++i) {
    append(" ");
    append(words[i]);
  }
  append(".");
  line.at(std::min(length, line.size() - 1)) = '\n';
  std::fwrite(line.data(), 1, std::min(length + 1, line.size()), stderr);
}

void StopOnSignals() { CatchSignals(NoteSignal); }

void EndBySignal(int signal) {
  std::signal(signal, SIG_DFL);
  std::raise(signal);
  std::abort();
}

}  // namespace quorvel
