#include "files/file_attributes.h"

#include <gtest/gtest.h>

#ifdef __linux__
#include "faults/people.h"

namespace quorvel {
namespace {

const Refusal NO_LISTS = {"no lists", SYS_fsetxattr, ENOTSUP};

struct Row {
  const char* name;
  const char* old;
  Person writer;
  const char* expected;
  Refusal refusal = {""};
};

const Row ROWS[] = {
    {"one's own", "64001:64101 6754", FIRST, "64001:64101 6754"},
    {"another's with a list, by root", "64001:64101 640 u::6 u:64009:6 g::4 g:64102:5 m::4 o::0",
     ROOT, "64001:64101 640 u::6 u:64009:6 g::4 g:64102:5 m::4 o::0"},
    {"of one's group", "64001:64101 6660", MEMBER, "64003:64101 660 u::6 u:64001:6 g::6 m::6 o::0"},
    {"of one's group, no lists", "64001:64101 6664", MEMBER, "64003:64101 664", NO_LISTS},
    {"whose owner has less than all, no lists", "64001:64101 477", MEMBER, "64003:64101 644",
     NO_LISTS},
    {"of a group that one is not in", "64002:64101 640", LONER,
     "64002:64002 640 u::6 g::0 g:64101:4 m::4 o::0"},
    {"the same, that all may read and run", "64002:64101 4765", LONER, "64002:64002 744", NO_LISTS},
    {"that all may write, no lists", "64001:64101 646", STRANGER, "64004:64103 644", NO_LISTS},
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
    {"whose list the system does not tell",
     "64001:64101 664 u::6 u:64009:6 g::4 m::6 o::4",
     FIRST,
     "64001:64001 600",
     {"", SYS_lgetxattr, EIO}},
    {"of a system without lists",
     "64001:64101 664",
     FIRST,
     "64001:64101 664",
     {"", SYS_lgetxattr, ENOSYS}},
    {"whose new list cannot be removed",
     "64001:64101 664",
     FIRST,
     "64001:64101 600",
     {"", SYS_fremovexattr, EPERM}},
    {"of a system that removes no lists",
     "64001:64101 664",
     FIRST,
     "64001:64101 664",
     {"", SYS_fremovexattr, ENOTSUP}},
    {"that cannot be given away",
     "64001:64101 640",
     FIRST,
     "64001:64001 640 u::6 g::0 g:64101:4 m::4 o::0",
     {"", SYS_fchown, EPERM}},
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
      if (row.refusal.call >= 0) RefuseCall(row.refusal.call, row.refusal.error);
      ReplaceAs(row.writer, path, [] {});
      EXPECT_EQ(AttributesOf(path), row.expected);
      EXPECT_EQ((*folder).Files(), (std::map<std::string, std::string>{{"a", "new"}}));
      std::filesystem::remove(path);
    });
  }
}

TEST(FileAttributes, OfANewFileAreThoseThatItsFolderHandsDown) {
  const OpenFolder folder(true);
  if (const std::string why = folder.Hindrance(); !why.empty()) GTEST_SKIP() << why;
  InChild([&] {
    ReplaceAs(FIRST, (*folder).Path("new"), [] {});
    EXPECT_EQ(AttributesOf((*folder).Path("new")),
              "64001:64001 664 u::6 u:64009:7 g::7 g:64102:7 m::6 o::4");
    const std::string path = (*folder).Write("a", "old");
    ::removexattr(path.c_str(), "system.posix_acl_access");
    Give(path, "64001:64101 640");
    ReplaceAs(FIRST, path, [] {});
    EXPECT_EQ(AttributesOf(path), "64001:64101 640") << "has none of its own";
  });
}

}  // namespace
}  // namespace quorvel
#endif
