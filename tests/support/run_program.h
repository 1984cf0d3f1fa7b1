// Runs a program as its users start it.
//
// RunProgram runs it in `folder` with standard input closed. Standard output and standard error go
// to the files "out" and "err" there. Arguments with blanks need single quotes. `before` is put
// before the program, where there is a shell. Returns the exit status, or 128 plus the signal that
// ended the program.
#pragma once

#ifdef _WIN32
#include <windows.h>

#include <algorithm>
#include <array>
#else
#include <sys/wait.h>

#include <cstdlib>
#endif

#include "support/test_folder.h"

namespace quorvel {

#ifdef _WIN32
// Opens a file of the folder that the program inherits.
inline HANDLE InheritedFile(const std::filesystem::path& path, bool written) {
  SECURITY_ATTRIBUTES inherited = {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  return ::CreateFileW(path.c_str(), written ? GENERIC_WRITE : GENERIC_READ, FILE_SHARE_READ,
                       &inherited, written ? CREATE_ALWAYS : OPEN_EXISTING, 0, nullptr);
}

inline int RunProgram(const TestFolder& folder, const std::string& program, std::string arguments,
                      const char* /*before*/ = "") {
  std::replace(arguments.begin(), arguments.end(), '\'', '"');
  std::wstring line = PathOfBytes("\"" + program + "\" " + arguments).wstring();
  const std::filesystem::path place = folder.Path("");
  STARTUPINFOW startup = {};
  startup.cb = sizeof(startup);
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = InheritedFile("NUL", false);
  startup.hStdOutput = InheritedFile(place / "out", true);
  startup.hStdError = InheritedFile(place / "err", true);
  PROCESS_INFORMATION process = {};
  unsigned long status = 0;
  bool isStarted = false;
  // About once in a thousand times Wine reports that it could not start the program.
  for (int tries = 0; tries < 3 && !isStarted; ++tries) {
    isStarted = ::CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                 place.c_str(), &startup, &process) != 0;
    if (!isStarted && ::GetLastError() != ERROR_INTERNAL_ERROR) break;
  }
  EXPECT_TRUE(isStarted) << "not started: error " << ::GetLastError();
  if (isStarted) {
    ::WaitForSingleObject(process.hProcess, INFINITE);
    ::GetExitCodeProcess(process.hProcess, &status);
  }
  for (HANDLE handle : {startup.hStdInput, startup.hStdOutput, startup.hStdError, process.hProcess,
                        process.hThread}) {
    ::CloseHandle(handle);
  }
  return static_cast<int>(status);
}
#else
inline int RunProgram(const TestFolder& folder, const std::string& program,
                      const std::string& arguments, const char* before = "") {
  const std::string command = "cd '" + folder.Path("") + "' && " + before + " '" + program + "' " +
                              arguments + " </dev/null >out 2>err";
  const int status = std::system(command.c_str());
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}
#endif

}  // namespace quorvel
