#include "files/file_attributes.h"

#include <gtest/gtest.h>

#ifdef __linux__
#include "faults/people.h"

namespace quorvel {
namespace {

struct Row {
  const char* name;
  const char* old;
  Person writer;
  const char* expected;
  long refused = -1;  // the number of the system call that is refused, or -1
  int error = ENOTSUP;
};

const Row ROWS[] = {
    {"one's own", "64001:64101 6754", FIRST, "64001:64101 6754"},
    {"another's with a list, by root", "64001:64101 640 u::6 u:64009:6 g::4 g:64102:5 m::4 o::0",
     ROOT, "64001:64101 640 u::6 u:64009:6 g::4 g:64102:5 m::4 o::0"},
    {"of one's group", "64001:64101 6660", MEMBER, "64003:64101 660 u::6 u:64001:6 g::6 m::6 o::0"},
    {"of one's group, no lists", "64001:64101 6664", MEMBER, "64003:64101 664", SYS_fsetxattr},
    {"whose owner has less than all, no lists", "64001:64101 477", MEMBER, "64003:64101 644",
     SYS_fsetxattr},
    {"of a group that one is not in", "64002:64101 640", LONER,
     "64002:64002 640 u::6 g::0 g:64101:4 m::4 o::0"},
    {"the same, that all may read and run", "64002:64101 4765", LONER, "64002:64002 744",
     SYS_fsetxattr},
    {"one's own that others may do more with, no lists", "64002:64101 266", LONER,
     "64002:64002 266", SYS_fsetxattr},
    {"that all may write, no lists", "64001:64101 646", STRANGER, "64004:64103 644", SYS_fsetxattr},
    {"of a group that is not to read", "64001:64101 606", STRANGER,
     "64004:64103 666 u::6 u:64001:6 g::0 g:64101:0 m::6 o::6"},
    {"that nobody may use", "64002:64101 600", LONER,
     "64002:64002 610 u::6 g::0 g:64101:0 m::1 o::0"},
    {"that is one's own to write by the list", "64001:64101 660 u::6 u:64004:6 g::4 m::6 o::0",
     STRANGER, "64004:64103 660 u::6 u:64001:6 g::0 g:64101:4 m::6 o::0"},
    {"with entries that the mask cuts", "64002:64101 740 u::7 u:64009:6 g::6 g:64102:7 m::4 o::0",
     LONER, "64002:64002 740 u::7 u:64009:4 g::0 g:64101:4 g:64102:4 m::4 o::0"},
    {"with a group that may do less than all", "64002:64101 644 u::6 g::4 g:64102:0 m::4 o::4",
     LONER, "64002:64002 644 u::6 g::0 g:64101:4 g:64102:0 m::4 o::4"},
    {"whose list names its own group", "64002:64101 664 u::6 g::4 g:64101:2 m::6 o::4", LONER,
     "64002:64002 664 u::6 g::4 g:64101:6 m::6 o::4"},
    {"whose list the system does not tell", "64001:64101 664 u::6 u:64009:6 g::4 m::6 o::4", FIRST,
     "64001:64001 600", SYS_lgetxattr, EIO},
    {"of a system without lists", "64001:64101 664", FIRST, "64001:64101 664", SYS_lgetxattr,
     ENOSYS},
    {"of a system that has none to remove", "64001:64101 664", FIRST, "64001:64101 664",
     SYS_fremovexattr},
    {"whose new list cannot be removed", "64001:64101 664", FIRST, "64001:64101 600",
     SYS_fremovexattr, EPERM},
    {"that cannot be given away", "64001:64101 640", FIRST,
     "64001:64001 640 u::6 g::0 g:64101:4 m::4 o::0", SYS_fchown, EPERM},
};

TEST(FileAttributes, AreKeptAsFarAsTheSystemAllows) {
  const OpenFolder folder(false);
  if (const std::string why = folder.Hindrance(); !why.empty()) GTEST_SKIP() << why;
  for (const Row& row : ROWS) {
    SCOPED_TRACE(row.name);
    InChild([&] {
      const std::string path = (*folder).Write("a", "old");
      Give(path, row.old);
      EXPECT_EQ(AttributesOf(path), row.old);
      if (row.refused >= 0) RefuseCall(row.refused, row.error);
      ReplaceAs(row.writer, path, [] {});
      EXPECT_EQ(AttributesOf(path), row.expected);
      EXPECT_EQ((*folder).Files(), (std::map<std::string, std::string>{{"a", "new"}}));
      std::filesystem::remove(path);
    });
  }
}

}  // namespace
}  // namespace quorvel
#endif
