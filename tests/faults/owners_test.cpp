// Replacing a file gives nobody a right that they did not have. Files with several owners, groups,
// modes and access lists are replaced by several users, while the system refuses some calls. With
// QUORVEL_ALL_FAULTS set, one mode in five is tried, otherwise one in sixty.

#include "faults/people.h"

namespace quorvel {
namespace {
// Users who may have rights beside owners and writers. The second is in all groups.
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

using Rights = std::map<std::string, int>;

// The rights of each user to a file: read 4, write 2, execute 1.
Rights RightsTo(const std::string& path) {
  Rights rights;
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

struct Rewriting {
  Person owner;
  Person writer;
  std::string attributes;
};

// Nobody gained a right, and nobody lost one unless the system refused a call.
void CompareRights(const Rewriting& rewriting, const Rights& before, const std::string& path,
                   bool refused) {
  const bool isStillOwner = AttributesOf(path).starts_with(std::to_string(rewriting.owner.user));
  for (const auto& [name, rights] : RightsTo(path)) {
    if (name == rewriting.writer.name) continue;
    int had = before.at(name);
    // Members of the writer's own group may lose the rights of everybody.
    const bool mayLose = refused || std::string(name) == "stranger's fellow";
    const int lost = mayLose ? 0 : had & ~before.at("nobody's") & ~rights;
    // An owner can give himself any right.
    if (isStillOwner && name == rewriting.owner.name) had |= R_OK | W_OK;
    EXPECT_EQ((rights & ~had) | lost, 0) << name << " had " << had << ", has " << rights;
  }
}

// Replaces a file if the writer is allowed to. Returns whether it was replaced.
bool TryRewriting(const TestFolder& folder, const Rewriting& rewriting, bool refused) {
  const std::string path = folder.Write("a", "old");
  Give(path, rewriting.attributes);
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
    ReplaceAs(writer, path, lookAtTheNewOne);
    CompareRights(rewriting, before, path, refused);
  }
  if (testing::Test::HasFailure()) {
    ADD_FAILURE() << rewriting.attributes << ", by the " << writer.name;
  }
  fs::remove(path);
  return may;
}

// Tries every owner, writer and list with some of the modes, until something is wrong. Returns how
// many files were replaced.
int TryRewritings(const TestFolder& folder, const Refusal& refusal) {
  const std::string lists[] = {
      "", "u::6 u:64004:6 u:64009:4 g::6 m::6 o::0",
      "u::4 u:64001:7 u:64003:2 u:64004:7 g::5 g:64101:2 g:64102:4 g:64103:1 m::3 o::4"};
  const int step = std::getenv("QUORVEL_ALL_FAULTS") != nullptr ? 5 : 61;
  int turn = 0;
  int files = 0;
  // Let fsync fail as on a system without it: thousands of files need not be synchronized to the
  // disk.
  RefuseCall(SYS_fsync, EINVAL);
  if (refusal.call >= 0) RefuseCall(refusal.call, refusal.error);
  for (const std::string& list : lists) {
    for (const Person& owner : {FIRST, LONER}) {
      for (const Person& writer : {FIRST, MEMBER, STRANGER, ROOT}) {
        for (mode_t mode = 0; mode < 512 && !testing::Test::HasFailure(); ++mode) {
          if (turn++ % step != 0) continue;
          std::ostringstream old;
          old << owner.user << ":" << STAFF << " " << std::oct << mode << " " << list;
          files += TryRewriting(folder, {owner, writer, old.str()}, refusal.call >= 0) ? 1 : 0;
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
