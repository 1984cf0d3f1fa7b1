#include "files/system_calls.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <thread>

#include "support/made_texts.h"
#include "support/test_folder.h"

namespace quorvel {
// A pipe transfers a part at a time.
TEST(SystemCalls, GoOnUntilAllIsReadOrWritten) {
  const std::string bytes = Repeated("0123456789", 50000);
  int ends[2] = {};
  ASSERT_EQ(::pipe(ends), 0);
  std::thread writer([&bytes, end = ends[1]] {
    EXPECT_TRUE(WriteBytes(end, bytes));
    ::close(end);
  });
  std::string read(bytes.size() + 1, ' ');
  EXPECT_EQ(ReadBytes(ends[0], read.data(), bytes.size() - 1), std::ssize(bytes) - 1);
  EXPECT_EQ(ReadBytes(ends[0], read.data() + bytes.size() - 1, 2), 1);
  writer.join();
  EXPECT_EQ(read, bytes + " ");
  ::close(ends[0]);
  EXPECT_EQ(ReadBytes(ends[0], read.data(), 1), -1);
  EXPECT_FALSE(WriteBytes(ends[1], bytes));
  EXPECT_FALSE(StatusOf(ends[0]).has_value());
}

// A pipe may have replaced a file after it was examined.
TEST(SystemCalls, WaitForNoPipe) {
  const TestFolder folder;
  ASSERT_EQ(::mkfifo(folder.Path("a").c_str(), 0600), 0);
  ::alarm(20);  // seconds; ends a test that hangs
  const int pipe = OpenToRead(folder.Path("a"));
  ::alarm(0);
  const std::optional<OpenStatus> status = StatusOf(pipe);
  EXPECT_TRUE(status && !status->isOrdinary);
  ::close(pipe);
}

}  // namespace quorvel
#endif
