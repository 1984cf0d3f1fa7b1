// Platform services of the command line besides files: arguments, standard streams and signals.
//
// All platform calls of the command line are behind this header.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel {

enum class Stream { input = 0, output = 1, error = 2 };

// The arguments of the program without its name, as the system's bytes, or UTF-8 on Windows.
[[nodiscard]] std::vector<std::string> ProgramArguments(int argumentCount, char** arguments);

// Sets the terminal to UTF-8 until the program ends. Call it at program start.
void PrepareTerminal();

// Switches standard input or output to binary mode, in which line ends are not converted.
void SetBinaryMode(Stream stream);

// Makes the allocator take memory in large steps and keep it, for a program that ends soon.
void TakeMemoryInLargeSteps();

// A path of the ordinary file behind the stream, or empty when it is not a file.
[[nodiscard]] std::string FilePathOf(Stream stream);

// True when the stream is a terminal.
[[nodiscard]] bool IsTerminal(Stream stream);

// True when standard input has data or has ended. Waits for a short time, so that the caller can
// handle signals. Where the system cannot wait with a timeout, returns true.
[[nodiscard]] bool HasInput();

// Reads up to `length` bytes from standard input, and waits if there are none yet. Returns their
// number, 0 at the end, or -1 on failure with errno set.
[[nodiscard]] std::ptrdiff_t ReadSome(char* into, std::size_t length);

// Writes as many bytes as the stream accepts, and waits a short time if it accepts none. Returns
// their number, which may be 0, or -1 on failure. Waits at most a tenth of a second, so that the
// caller can handle signals.
[[nodiscard]] std::ptrdiff_t WriteSome(Stream stream, std::string_view bytes);

// Calls `handle` for each signal that asks the program to stop or to end. A question that waits for
// an answer is interrupted. Signals that the parent process ignores (nohup) stay ignored.
void CatchSignals(void (*handle)(int));

}  // namespace quorvel
