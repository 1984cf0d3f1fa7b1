// Makes the system refuse calls, in a separate process. For Linux.
#pragma once
#ifdef __linux__

#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace quorvel {

// From now on the system refuses this call to the process, with this error number.
inline void RefuseCall(long call, int errorNumber) {
  const auto number = static_cast<unsigned>(call);
  sock_filter steps[] = {
      {BPF_LD | BPF_W | BPF_ABS, 0, 0, 0},  // the number of the call
      {BPF_JMP | BPF_JEQ | BPF_K, 0, 1, number},
      {BPF_RET | BPF_K, 0, 0, SECCOMP_RET_ERRNO | static_cast<unsigned>(errorNumber)},
      {BPF_RET | BPF_K, 0, 0, SECCOMP_RET_ALLOW}};
  const sock_fprog filter = {4, steps};
  if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
      ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) != 0) {
    std::abort();
  }
}

// Runs `work` in a separate process, which can change its users, groups and calls. Failures are
// printed there.
inline void InChild(const std::function<void()>& work) {
  std::fflush(nullptr);
  const pid_t child = ::fork();
  if (child == 0) {
    work();
    std::cout << std::flush;
    ::_exit(testing::Test::HasFailure() ? 1 : 0);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_EQ(status, 0) << "as said above";
}

}  // namespace quorvel
#endif
