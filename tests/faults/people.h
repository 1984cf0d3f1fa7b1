// Users and groups with rights to files. They need no names. Only root can act as them.
//
// The attributes of a file are written "64001:64101 660 u::6 u:64009:4 g::4 m::6 o::0": owner and
// group, mode, and the entries of the access list with kind, id and rights.
#pragma once

#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <linux/posix_acl_xattr.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <cstring>

#include "files/output_file.h"
#include "support/refused_calls.h"
#include "support/test_folder.h"

namespace quorvel {

inline constexpr gid_t STAFF = 64101;
inline constexpr gid_t CLUB = 64102;
inline constexpr gid_t STRANGERS = 64103;

struct Person {
  const char* name;
  uid_t user;
  gid_t group;
  std::vector<gid_t> groups = {};  // the other groups
};

inline const Person ROOT = {"root", 0, 0};
inline const Person FIRST = {"first owner", 64001, 64001, {STAFF}};
inline const Person LONER = {"loner", 64002, 64002};
inline const Person MEMBER = {"member", 64003, 64003, {STAFF}};
inline const Person STRANGER = {"stranger", 64004, STRANGERS};

// Acts as a user. The process can become root again.
inline void Become(const Person& person) {
  if (::setresuid(static_cast<uid_t>(-1), 0, 0) != 0 ||
      ::setgroups(person.groups.size(), person.groups.data()) != 0 ||
      ::setresgid(person.group, person.group, person.group) != 0 ||
      ::setresuid(person.user, person.user, 0) != 0) {
    std::abort();
  }
}

using ListEntry = posix_acl_xattr_entry;
inline constexpr std::uint32_t NO_ID = 0xFFFFFFFF;
inline const std::map<std::string, std::uint16_t> LIST_KINDS = {
    {"u::", 1}, {"u:", 2}, {"g::", 4}, {"g:", 8}, {"m::", 16}, {"o::", 32}};

// An access list as the bytes of the system.
inline std::string ListBytes(std::istream& words) {
  std::string bytes;
  for (std::string word; words >> word;) {
    if (bytes.empty()) bytes.assign("\2\0\0\0", 4);
    const bool isNamed = word[2] != ':';
    const auto id = isNamed ? static_cast<std::uint32_t>(std::stoul(word.substr(2))) : NO_ID;
    const auto rights = static_cast<std::uint16_t>(word.back() - '0');
    const ListEntry entry = {LIST_KINDS.at(word.substr(0, isNamed ? 2 : 3)), rights, id};
    bytes.append(reinterpret_cast<const char*>(&entry), sizeof(entry));
  }
  return bytes;
}

inline std::string AttributesOf(const std::string& path) {
  struct stat status = {};
  EXPECT_EQ(::stat(path.c_str(), &status), 0);
  std::ostringstream text;
  text << status.st_uid << ":" << status.st_gid << " " << std::oct << (status.st_mode & 07777U)
       << std::dec;
  char list[1024];
  const ssize_t length = ::getxattr(path.c_str(), "system.posix_acl_access", list, sizeof(list));
  for (ssize_t i = 4; i < length; i += ssize_t{sizeof(ListEntry)}) {
    ListEntry entry = {};
    std::memcpy(&entry, list + i, sizeof(entry));
    for (const auto& [name, kind] : LIST_KINDS) {
      if (kind != entry.e_tag) continue;
      text << " " << name;
      if (entry.e_id != NO_ID) text << entry.e_id << ":";
      text << entry.e_perm;
    }
  }
  return text.str();
}

// If there is an access list, the group bits of the mode are its mask.
inline void Give(const std::string& path, const std::string& attributes) {
  std::istringstream text(attributes);
  uid_t owner = 0;
  gid_t group = 0;
  mode_t mode = 0;
  char colon = ' ';
  text >> owner >> colon >> group >> std::oct >> mode >> std::dec;
  const std::string list = ListBytes(text);
  const char* name = "system.posix_acl_access";
  EXPECT_EQ(::chown(path.c_str(), owner, group), 0);
  ::removexattr(path.c_str(), name);
  EXPECT_TRUE(list.empty() || ::setxattr(path.c_str(), name, list.data(), list.size(), 0) == 0);
  EXPECT_EQ(::chmod(path.c_str(), mode), 0);
}

// A folder in which everybody may write. With `handsDown`, new files in it inherit an access list.
class OpenFolder {
 public:
  explicit OpenFolder(bool handsDown) {
    ::chmod(folder_.Path("").c_str(), 0777);
    std::istringstream words("u::7 u:64009:7 g::7 g:64102:7 m::7 o::5");
    const std::string list = ListBytes(words);
    const char* name = "system.posix_acl_default";
    listsWork_ = ::setxattr(folder_.Path("").c_str(), name, list.data(), list.size(), 0) == 0;
    if (!handsDown && listsWork_) ::removexattr(folder_.Path("").c_str(), name);
  }

  [[nodiscard]] const TestFolder& operator*() const { return folder_; }

  // Why the tests cannot run in it, or empty if they can.
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

// Replaces the file as the writer does. `meanwhile` is called just before the new file takes the
// place of the old one.
inline void ReplaceAs(const Person& writer, const std::string& path,
                      const std::function<void()>& meanwhile) {
  Become(writer);
  OutputFile file(path, {});
  EXPECT_TRUE(file.Write("new"));
  meanwhile();
  Become(writer);
  EXPECT_TRUE(file.Commit()) << file.Error()->reason;
  Become(ROOT);
}

}  // namespace quorvel
