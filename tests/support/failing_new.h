// Memory that the test program does not get.
#pragma once

namespace quorvel {

// A sanitizer gives memory of its own: a test with such faults is skipped there.
#ifdef __SANITIZE_ADDRESS__
inline constexpr bool CAN_FAIL_NEW = false;
#else
inline constexpr bool CAN_FAIL_NEW = true;
#endif

// As long as it lives, the requests of all threads by "new" are numbered from 1 on, and that of one
// number fails, or with `lasting` every one from there on. Number 0 is none.
class FailingNew {
 public:
  FailingNew(long number, bool lasting);
  ~FailingNew();
  FailingNew(const FailingNew&) = delete;
  FailingNew& operator=(const FailingNew&) = delete;

  // How many there have been.
  [[nodiscard]] static long Count();

  // As long as this lives, none is numbered and none fails.
  class Pause {
   public:
    Pause();
    ~Pause();
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;

   private:
    bool counted_;
  };
};

}  // namespace quorvel
