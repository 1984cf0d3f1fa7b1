// What the command line needs of the system it runs on, beyond files: arguments, standard streams
// and signals.
//
// Every platform call of the command line stands behind this header.
#pragma once

#include <string>
#include <vector>

namespace quorvel {

// The arguments of the program without its name: the bytes that the system gave, UTF-8 on Windows.
[[nodiscard]] std::vector<std::string> ProgramArguments(int argumentCount, char** arguments);

// Lets UTF-8 be shown as what it is, to the end of the program. For the start of one.
void PrepareTerminal();

// From now on bytes go to standard output as they are, line ends too.
void LetStandardOutputBeBytes();

// Takes memory from the system in large steps and keeps it, for a program that soon ends.
void TakeMemoryInLargeSteps();

enum class Stream { input = 0, error = 2 };

// Whether somebody sits at the other end of the stream.
[[nodiscard]] bool IsTerminal(Stream stream);

// Calls `handle` for each signal that asks the program to stop or to end. A question that
// waits for an answer is broken off, and what the caller has set to be ignored (nohup) stays so.
void CatchSignals(void (*handle)(int));

}  // namespace quorvel
