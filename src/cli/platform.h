// What the command line needs of the system it runs on, beyond files: arguments, standard streams
// and signals.
//
// Every platform call of the command line stands behind this header.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel {

enum class Stream { input = 0, output = 1, error = 2 };

// The arguments of the program without its name: the bytes that the system gave, UTF-8 on Windows.
[[nodiscard]] std::vector<std::string> ProgramArguments(int argumentCount, char** arguments);

// Lets UTF-8 be shown as what it is, to the end of the program. For the start of one.
void PrepareTerminal();

// From now on bytes go through standard input or output as they are, line ends too.
void LetBeBytes(Stream stream);

// Takes memory from the system in large steps and keeps it, for a program that soon ends.
void TakeMemoryInLargeSteps();

// A path of the ordinary file that the stream comes from or goes to; empty where it is none.
[[nodiscard]] std::string FilePathOf(Stream stream);

// Whether somebody sits at the other end of the stream.
[[nodiscard]] bool IsTerminal(Stream stream);

// Whether standard input has something to read, or has ended. Waits for that a moment, so that its
// caller hears a signal; where the system cannot wait so, it says that there is something.
[[nodiscard]] bool HasInput();

// Reads what standard input has, up to `length` bytes; waits where that is nothing yet. Gives how
// many it took, 0 at the end, and -1 on failure, with errno set.
[[nodiscard]] std::ptrdiff_t ReadSome(char* into, std::size_t length);

// Writes as many of the bytes as the stream takes at once; where it takes none yet, waits for it a
// moment. Gives how many it took, 0 when that was none, and -1 on failure. Never waits for longer
// than a tenth of a second, so that its caller hears a signal.
[[nodiscard]] std::ptrdiff_t WriteSome(Stream stream, std::string_view bytes);

// Calls `handle` for each signal that asks the program to stop or to end. A question that
// waits for an answer is broken off, and what the caller has set to be ignored (nohup) stays so.
void CatchSignals(void (*handle)(int));

}  // namespace quorvel
