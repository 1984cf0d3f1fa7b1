// Whoever writes a file anew, nobody gets a right to it that they did not have: files of several
// owners, groups, modes and access lists, replaced by several users, with a system that refuses
// this or that.
//
// The users and groups are numbers that need no names; only root can take their part. With
// QUORVEL_ALL_FAULTS set one mode in five is tried; without, one in sixty.

#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <functional>
#include <map>
#include <sstream>

#include "files/output_file.h"
#include "support/test_folder.h"

namespace quorvel {
namespace {

namespace fs = std::filesystem;

constexpr gid_t STAFF = 64101;
constexpr gid_t CLUB = 64102;
constexpr gid_t STRANGERS = 64103;

struct Person {
  const char* name;
  uid_t user;
  gid_t group;
  std::vector<gid_t> groups = {};  // and these
};

const Person ROOT = {"root", 0, 0};
const Person FIRST = {"first owner", 64001, 64001, {STAFF}};
const Person LONER = {"loner", 64002, 64002};
const Person MEMBER = {"member", 64003, 64003, {STAFF}};
const Person STRANGER = {"stranger", 64004, STRANGERS};
// Those who may have rights beside owners and writers; the second in the groups of all.
const std::vector<Person> PEOPLE = {
    FIRST,
    LONER,
    MEMBER,
    STRANGER,
    {"stranger's fellow", 64005, STRANGERS},
    {"member of all", 64006, STRANGERS, {STAFF, CLUB, 64001, 64002}},
    {"colleague", 64007, 64007, {STAFF}},
    {"clubber", 64008, CLUB},
    {"named", 64009, 64009},
    {"nobody's", 64010, 64010}};

// Takes a person's part; root's can be taken again.
void Become(const Person& person) {
  if (::setresuid(static_cast<uid_t>(-1), 0, 0) != 0 ||
      ::setgroups(person.groups.size(), person.groups.data()) != 0 ||
      ::setresgid(person.group, person.group, person.group) != 0 ||
      ::setresuid(person.user, person.user, 0) != 0) {
    std::abort();
  }
}

// From now on the system refuses one of its calls to this process, with that number.
void RefuseCall(long call, int errorNumber) {
  const auto number = static_cast<unsigned>(call);
  sock_filter steps[] = {
      {BPF_LD | BPF_W | BPF_ABS, 0, 0, 0},  // the number of the call
      {BPF_JMP | BPF_JEQ | BPF_K, 0, 1, number},
      {BPF_RET | BPF_K, 0, 0, SECCOMP_RET_ERRNO | static_cast<unsigned>(errorNumber)},
      {BPF_RET | BPF_K, 0, 0, SECCOMP_RET_ALLOW}};
  const sock_fprog filter = {4, steps};
  if (::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) != 0) std::abort();
}

// Does it in a process of its own, whose users, groups and calls are none of ours. What goes wrong
// there is printed there.
void InChild(const std::function<void()>& work) {
  std::fflush(nullptr);
  const pid_t child = ::fork();
  if (child == 0) {
    // Thousands of files need not be on the disk: a system may know no such wait.
    RefuseCall(SYS_fsync, EINVAL);
    work();
    std::cout << std::flush;
    ::_exit(testing::Test::HasFailure() ? 1 : 0);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_EQ(status, 0) << "as said above";
}

// An access list is written "u::6 u:64009:4 g::4 m::6 o::0": whose, which, the rights; in the order
// and in the bytes of the system it is this.
struct Entry {
  std::uint16_t kind;
  std::uint16_t rights;
  std::uint32_t id;
};
constexpr std::uint32_t NO_ID = 0xFFFFFFFF;
const std::map<std::string, std::uint16_t> KINDS = {{"u::", 1}, {"u:", 2},   {"g::", 4},
                                                    {"g:", 8},  {"m::", 16}, {"o::", 32}};

std::string BytesOf(const std::string& list) {
  std::string bytes = list.empty() ? "" : std::string("\2\0\0\0", 4);
  std::istringstream words(list);
  for (std::string word; words >> word;) {
    const bool isNamed = word[2] != ':';
    const auto id = isNamed ? static_cast<std::uint32_t>(std::stoul(word.substr(2))) : NO_ID;
    const auto rights = static_cast<std::uint16_t>(word.back() - '0');
    const Entry entry = {KINDS.at(word.substr(0, isNamed ? 2 : 3)), rights, id};
    bytes.append(reinterpret_cast<const char*>(&entry), sizeof(entry));
  }
  return bytes;
}

std::string TextOf(const char* bytes, std::size_t length) {
  std::ostringstream list;
  for (std::size_t i = 4; i < length; i += sizeof(Entry)) {
    Entry entry = {};
    std::memcpy(&entry, bytes + i, sizeof(entry));
    for (const auto& [text, kind] : KINDS) {
      if (kind != entry.kind) continue;
      list << (i == 4 ? "" : " ") << text;
      if (entry.id != NO_ID) list << entry.id << ":";
      list << entry.rights;
    }
  }
  return list.str();
}

struct Attributes {
  uid_t owner;
  gid_t group;
  mode_t mode;
  std::string list = {};

  bool operator==(const Attributes&) const = default;
};

void PrintTo(const Attributes& attributes, std::ostream* out) {
  *out << attributes.owner << ":" << attributes.group << " " << std::oct << attributes.mode
       << std::dec << " " << attributes.list;
}

Attributes AttributesOf(const std::string& path) {
  struct stat status = {};
  EXPECT_EQ(::stat(path.c_str(), &status), 0);
  char list[1024];
  const ssize_t length = ::getxattr(path.c_str(), "system.posix_acl_access", list, sizeof(list));
  return {status.st_uid, status.st_gid, status.st_mode & 07777U,
          length > 0 ? TextOf(list, static_cast<std::size_t>(length)) : ""};
}

// With a list the group's bits of the mode are its mask.
void Give(const std::string& path, const Attributes& attributes) {
  const std::string list = BytesOf(attributes.list);
  const char* name = "system.posix_acl_access";
  EXPECT_EQ(::chown(path.c_str(), attributes.owner, attributes.group), 0);
  ::removexattr(path.c_str(), name);
  EXPECT_TRUE(list.empty() || ::setxattr(path.c_str(), name, list.data(), list.size(), 0) == 0);
  EXPECT_EQ(::chmod(path.c_str(), attributes.mode), 0);
}

// What the system allows each of the people with a file: reading is 4, writing 2, running it 1.
std::map<std::string, int> RightsTo(const std::string& path) {
  std::map<std::string, int> rights;
  for (const Person& person : PEOPLE) {
    Become(person);
    for (const int right : {R_OK, W_OK, X_OK}) {
      const bool has = ::faccessat(AT_FDCWD, path.c_str(), right, AT_EACCESS) == 0;
      rights[person.name] += has ? right : 0;
    }
  }
  Become(ROOT);
  return rights;
}

// A folder into which everybody may write. With `handsDown` a file made in it gets a list.
class OpenFolder {
 public:
  explicit OpenFolder(bool handsDown) {
    ::chmod(folder_.Path("").c_str(), 0777);
    const std::string list = BytesOf("u::7 u:64009:7 g::7 g:64102:7 m::7 o::5");
    const char* name = "system.posix_acl_default";
    listsWork_ = ::setxattr(folder_.Path("").c_str(), name, list.data(), list.size(), 0) == 0;
    if (!handsDown && listsWork_) ::removexattr(folder_.Path("").c_str(), name);
  }

  [[nodiscard]] const TestFolder& operator*() const { return folder_; }

  // Why nothing can be tried in it; empty when all can.
  [[nodiscard]] std::string Hindrance() const {
    if (::geteuid() != 0) return "only root can take the part of other users";
    if (!listsWork_) return "the folder for temporary files has no access lists";
    const pid_t child = ::fork();
    if (child == 0) {
      Become(STRANGER);
      ::_exit(::access(folder_.Path("").c_str(), W_OK) == 0 ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return status == 0 ? "" : "there are no other users, or they cannot reach the temporary files";
  }

 private:
  TestFolder folder_;
  bool listsWork_ = false;
};

struct Refusal {
  const char* name;
  long call = -1;
  int error = 0;
};

struct Row {
  const char* name;
  Attributes old;
  Person writer;
  Attributes expected;
  Refusal refusal = {""};
};

const Refusal NO_LISTS = {"no lists", SYS_fsetxattr, ENOTSUP};

const Row ROWS[] = {
    {"one's own", {64001, STAFF, 06754}, FIRST, {64001, STAFF, 06754}},
    {"another's, by root", {64001, STAFF, 06604}, ROOT, {64001, STAFF, 06604}},
    {"one's own with a list",
     {64001, STAFF, 0664, "u::6 u:64009:6 g::4 m::6 o::4"},
     FIRST,
     {64001, STAFF, 0664, "u::6 u:64009:6 g::4 m::6 o::4"}},
    {"another's with a list, by root",
     {64001, STAFF, 0640, "u::6 u:64009:6 g::4 g:64102:5 m::4 o::0"},
     ROOT,
     {64001, STAFF, 0640, "u::6 u:64009:6 g::4 g:64102:5 m::4 o::0"}},
    {"of one's group",
     {64001, STAFF, 06660},
     MEMBER,
     {64003, STAFF, 0660, "u::6 u:64001:6 g::6 m::6 o::0"}},
    {"of one's group, no lists", {64001, STAFF, 06664}, MEMBER, {64003, STAFF, 0664}, NO_LISTS},
    {"of a group that one is not in",
     {64002, STAFF, 0640},
     LONER,
     {64002, 64002, 0640, "u::6 g::0 g:64101:4 m::4 o::0"}},
    {"of a group that one is not in, no lists",
     {64002, STAFF, 0640},
     LONER,
     {64002, 64002, 0600},
     NO_LISTS},
    {"that all may write, no lists",
     {64001, STAFF, 0646},
     STRANGER,
     {64004, STRANGERS, 0644},
     NO_LISTS},
    {"of a group that is not to read",
     {64001, STAFF, 0606},
     STRANGER,
     {64004, STRANGERS, 0666, "u::6 u:64001:6 g::0 g:64101:0 m::6 o::6"}},
    {"that is one's own to write by the list",
     {64001, STAFF, 0660, "u::6 u:64004:6 g::4 m::6 o::0"},
     STRANGER,
     {64004, STRANGERS, 0660, "u::6 u:64001:6 g::0 g:64101:4 m::6 o::0"}},
    {"the same, and lists are refused",
     {64001, STAFF, 0660, "u::6 u:64004:6 g::4 m::6 o::0"},
     STRANGER,
     {64004, STRANGERS, 0600},
     NO_LISTS},
    {"with entries that the mask cuts",
     {64002, STAFF, 0740, "u::7 u:64009:6 g::6 g:64102:7 m::4 o::0"},
     LONER,
     {64002, 64002, 0740, "u::7 u:64009:4 g::0 g:64101:4 g:64102:4 m::4 o::0"}},
    {"whose list the system does not tell",
     {64001, STAFF, 0664, "u::6 u:64009:6 g::4 m::6 o::4"},
     FIRST,
     {64001, 64001, 0600},
     {"", SYS_lgetxattr, EIO}},
};

// Replaces the file as the writer does; what is to be done before it takes the old one's place.
void Replace(const std::string& path, const Person& writer,
             const std::function<void()>& meanwhile) {
  Become(writer);
  OutputFile file(path, {});
  EXPECT_TRUE(file.Write("new"));
  meanwhile();
  Become(writer);
  EXPECT_TRUE(file.Commit()) << file.Why()->reason;
  Become(ROOT);
}

TEST(Faults, OwnersModesAndAccessListsAreKeptAsFarAsTheSystemAllows) {
  const OpenFolder folder(false);
  if (const std::string why = folder.Hindrance(); !why.empty()) GTEST_SKIP() << why;
  for (const Row& row : ROWS) {
    SCOPED_TRACE(row.name);
    InChild([&] {
      const std::string path = (*folder).Write("a", "old");
      Give(path, row.old);
      EXPECT_EQ(AttributesOf(path), row.old);
      if (row.refusal.call >= 0) RefuseCall(row.refusal.call, row.refusal.error);
      Replace(path, row.writer, [] {});
      EXPECT_EQ(AttributesOf(path), row.expected);
      EXPECT_EQ((*folder).Files(), (std::map<std::string, std::string>{{"a", "new"}}));
      fs::remove(path);
    });
  }
}

TEST(Faults, ANewFileHasTheRightsThatItsFolderHandsDown) {
  const OpenFolder folder(true);
  if (const std::string why = folder.Hindrance(); !why.empty()) GTEST_SKIP() << why;
  InChild([&] {
    const std::string path = (*folder).Path("a");
    Replace(path, FIRST, [] {});
    EXPECT_EQ(AttributesOf(path),
              (Attributes{64001, 64001, 0664, "u::6 u:64009:7 g::7 g:64102:7 m::6 o::4"}));
  });
}

struct Rewriting {
  Person owner;
  Person writer;
  mode_t mode;
  std::string list;
};

using Rights = std::map<std::string, int>;

// Nobody has got a right, and nobody has lost one unless the system has refused something.
void CompareRights(const Rewriting& rewriting, const Rights& before, const std::string& path,
                   bool refused) {
  const bool isStillOwner = AttributesOf(path).owner == rewriting.owner.user;
  for (const auto& [name, rights] : RightsTo(path)) {
    if (name == rewriting.writer.name) continue;
    int had = before.at(name);
    // Those in the writer's own group may lose what everybody has.
    const bool mayLose = refused || std::string(name) == "stranger's fellow";
    const int lost = mayLose ? 0 : had & ~before.at("nobody's") & ~rights;
    // An owner can give himself what he likes.
    if (isStillOwner && name == rewriting.owner.name) had |= R_OK | W_OK;
    EXPECT_EQ((rights & ~had) | lost, 0) << name << " had " << had << ", has " << rights;
  }
}

// Writes a file anew, if the writer may, and gives whether it was.
bool TryRewriting(const TestFolder& folder, const Rewriting& rewriting, bool refused) {
  const std::string path = folder.Write("a", "old");
  Give(path, {rewriting.owner.user, STAFF, rewriting.mode, rewriting.list});
  const Rights before = RightsTo(path);
  const Person& writer = rewriting.writer;
  const bool may = writer.user == 0 || (before.at(writer.name) & W_OK) != 0;
  const auto lookAtTheNewOne = [&] {
    Become(ROOT);
    for (const auto& entry : fs::directory_iterator(folder.Path(""))) {
      if (entry.path() == path) continue;
      for (const auto& [name, rights] : RightsTo(entry.path())) {
        EXPECT_TRUE(rights == 0 || name == writer.name) << name << " may do " << rights;
      }
    }
  };
  if (may) {
    Replace(path, writer, lookAtTheNewOne);
    CompareRights(rewriting, before, path, refused);
  }
  if (testing::Test::HasFailure()) {
    ADD_FAILURE() << "a file of the " << rewriting.owner.name << ", " << std::oct << rewriting.mode
                  << " " << rewriting.list << ", by the " << writer.name;
  }
  fs::remove(path);
  return may;
}

// Every owner, writer and list, with as many modes as are to be tried, until something is wrong.
// Gives how many files were written anew.
int TryRewritings(const TestFolder& folder, const Refusal& refusal) {
  const std::string lists[] = {
      "", "u::6 u:64004:6 u:64009:4 g::6 m::6 o::0",
      "u::4 u:64001:7 u:64003:2 u:64004:7 g::5 g:64101:2 g:64102:4 g:64103:1 m::3 o::4"};
  const int step = std::getenv("QUORVEL_ALL_FAULTS") != nullptr ? 5 : 61;
  int turn = 0;
  int files = 0;
  if (refusal.call >= 0) RefuseCall(refusal.call, refusal.error);
  for (const std::string& list : lists) {
    for (const Person& owner : {FIRST, LONER}) {
      for (const Person& writer : {FIRST, MEMBER, STRANGER, ROOT}) {
        for (mode_t mode = 0; mode < 512 && !testing::Test::HasFailure(); ++mode) {
          if (turn++ % step != 0) continue;
          files += TryRewriting(folder, {owner, writer, mode, list}, refusal.call >= 0) ? 1 : 0;
        }
      }
    }
  }
  EXPECT_GT(files, 50);
  return files;
}

TEST(Faults, NobodyGetsARightToAFileThatAnotherWritesAnew) {
  const Refusal refusals[] = {{"nothing"},
                              {"to set lists", SYS_fsetxattr, ENOTSUP},
                              {"to remove lists", SYS_fremovexattr, EPERM},
                              {"to tell lists", SYS_lgetxattr, EIO},
                              {"to change owners", SYS_fchown, EPERM},
                              {"to change modes", SYS_fchmod, EPERM}};
  for (const Refusal& refusal : refusals) {
    for (const bool handsDown : {false, true}) {
      const OpenFolder folder(handsDown);
      if (const std::string why = folder.Hindrance(); !why.empty()) GTEST_SKIP() << why;
      SCOPED_TRACE(refusal.name);
      InChild([&] {
        std::cout << TryRewritings(*folder, refusal) << " files of several owners written anew"
                  << (handsDown ? " in a folder with a list" : "") << "; the system refuses "
                  << refusal.name << "\n";
      });
      if (HasFailure()) return;
    }
  }
}

}  // namespace
}  // namespace quorvel
