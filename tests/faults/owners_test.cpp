// Whoever writes a file anew, nobody gets a right to it that they did not have: files of several
// owners, groups, modes and access lists, replaced by several users, with a system that refuses
// this or that. With QUORVEL_ALL_FAULTS set one mode in five is tried; without, one in sixty.

#include "faults/people.h"

namespace quorvel {
namespace {
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

using Rights = std::map<std::string, int>;

// What the system allows each of the people with a file: reading is 4, writing 2, running it 1.
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

// Nobody has got a right, and nobody has lost one unless the system has refused something.
void CompareRights(const Rewriting& rewriting, const Rights& before, const std::string& path,
                   bool refused) {
  const bool isStillOwner = AttributesOf(path).starts_with(std::to_string(rewriting.owner.user));
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

// Every owner, writer and list, with as many modes as are to be tried, until something is wrong.
// Gives how many files were written anew.
int TryRewritings(const TestFolder& folder, const Refusal& refusal) {
  const std::string lists[] = {
      "", "u::6 u:64004:6 u:64009:4 g::6 m::6 o::0",
      "u::4 u:64001:7 u:64003:2 u:64004:7 g::5 g:64101:2 g:64102:4 g:64103:1 m::3 o::4"};
  const int step = std::getenv("QUORVEL_ALL_FAULTS") != nullptr ? 5 : 61;
  int turn = 0;
  int files = 0;
  // Thousands of files need not be on the disk: a system may know no such wait.
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
