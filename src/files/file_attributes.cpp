#include "files/file_attributes.h"

#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>

#include <optional>
#include <string>
#endif
#ifdef __linux__
#include <endian.h>
#include <linux/limits.h>
#include <linux/posix_acl.h>
#include <linux/posix_acl_xattr.h>
#include <sys/xattr.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <map>
#include <string_view>
#include <utility>
#endif

// Only root can give a file to another user, or to a group that the user is not in. When the old
// owner or group is lost, the mode applies to other people than before. In that case an access list
// gives the old owner and group their rights by name. Where the system has no access lists, the
// mode is reduced to the rights that all people had whom it may apply to now.

namespace quorvel {

namespace fs = std::filesystem;

#ifdef _WIN32
void CopyAttributesFrom(int /*handle*/, const fs::path& /*target*/) {}
#else
namespace {

constexpr ::mode_t RIGHTS = 7;  // of one class of users: read, write, execute

// Which of the old file's owner and group the new file has, and who owns the new file otherwise.
struct Taken {
  bool owner = false;
  bool group = false;
  ::uid_t writer = 0;

  [[nodiscard]] bool Both() const { return owner && group; }
};

// Reads the result back, because some systems report success and change nothing. Returns nothing
// when it cannot be read.
std::optional<Taken> TakeOwnerAndGroup(int handle, const struct stat& old) {
  if (::fchown(handle, old.st_uid, old.st_gid) != 0) {
    [[maybe_unused]] const int given = ::fchown(handle, static_cast<::uid_t>(-1), old.st_gid);
  }
  struct stat now = {};
  if (::fstat(handle, &now) != 0) return std::nullopt;
  return Taken{now.st_uid == old.st_uid, now.st_gid == old.st_gid, now.st_uid};
}

// The setuid and setgid bits are dropped with a lost owner or group.
::mode_t ModeFor(::mode_t old, const Taken& taken) {
  if (taken.Both()) return old & 07777U;
  const ::mode_t owner = (old >> 6U) & RIGHTS;
  const ::mode_t group = (old >> 3U) & RIGHTS;
  const ::mode_t others = old & RIGHTS;
  ::mode_t most = RIGHTS;
  if (!taken.owner) most &= owner;
  if (!taken.group) most &= group & others;
  const ::mode_t ofWriter = taken.owner ? owner : owner | 6U;
  return (ofWriter << 6U) | ((group & most) << 3U) | (others & most);
}

#ifdef __linux__
constexpr const char* ACCESS_LIST = "system.posix_acl_access";

// The kind of an entry with the number of a named user or group, and the rights that it gives.
using Who = std::pair<unsigned, std::uint32_t>;
using AccessList = std::map<Who, unsigned>;

constexpr auto NOBODY_NAMED = static_cast<std::uint32_t>(ACL_UNDEFINED_ID);
constexpr Who OWNER = {ACL_USER_OBJ, NOBODY_NAMED};
constexpr Who GROUP = {ACL_GROUP_OBJ, NOBODY_NAMED};
constexpr Who MASK = {ACL_MASK, NOBODY_NAMED};
constexpr Who OTHERS = {ACL_OTHER, NOBODY_NAMED};

// True for entries that the mask limits.
bool IsMasked(const Who& who) {
  return who.first == ACL_USER || who.first == ACL_GROUP_OBJ || who.first == ACL_GROUP;
}

bool HasNoLists(int errorNumber) {
  return errorNumber == ENODATA || errorNumber == ENOTSUP || errorNumber == ENOSYS;
}

// Returns the access list of a file as the system stores it. Empty when the file has only a mode,
// and nothing when the list cannot be read.
std::optional<std::string> AccessListOf(const fs::path& path) {
  std::string bytes(XATTR_SIZE_MAX, '\0');
  const ssize_t length = ::lgetxattr(path.c_str(), ACCESS_LIST, bytes.data(), bytes.size());
  if (length < 0 && !HasNoLists(errno)) return std::nullopt;
  bytes.resize(static_cast<std::size_t>(std::max<ssize_t>(length, 0)));
  return bytes;
}

// An empty `bytes` removes the list: the new file may have inherited one from its folder.
bool SetAccessList(int handle, const std::string& bytes) {
  if (!bytes.empty()) return ::fsetxattr(handle, ACCESS_LIST, bytes.data(), bytes.size(), 0) == 0;
  return ::fremovexattr(handle, ACCESS_LIST) == 0 || HasNoLists(errno);
}

AccessList ParseList(std::string_view bytes) {
  AccessList list;
  bytes.remove_prefix(std::min(bytes.size(), sizeof(posix_acl_xattr_header)));
  posix_acl_xattr_entry entry = {};
  for (; bytes.size() >= sizeof(entry); bytes.remove_prefix(sizeof(entry))) {
    std::memcpy(&entry, bytes.data(), sizeof(entry));
    list[{le16toh(entry.e_tag), le32toh(entry.e_id)}] = le16toh(entry.e_perm);
  }
  return list;
}

// The map is already in the order that the system requires.
std::string BytesOf(const AccessList& list) {
  const posix_acl_xattr_header header = {htole32(POSIX_ACL_XATTR_VERSION)};
  std::string bytes(reinterpret_cast<const char*>(&header), sizeof(header));
  for (const auto& [who, rights] : list) {
    const posix_acl_xattr_entry entry = {htole16(static_cast<std::uint16_t>(who.first)),
                                         htole16(static_cast<std::uint16_t>(rights)),
                                         htole32(who.second)};
    bytes.append(reinterpret_cast<const char*>(&entry), sizeof(entry));
  }
  return bytes;
}

AccessList ListOfMode(::mode_t mode) {
  return {{OWNER, (mode >> 6U) & RIGHTS}, {GROUP, (mode >> 3U) & RIGHTS}, {OTHERS, mode & RIGHTS}};
}

// Adds the old group, which the file no longer has, to the list by name. Members of the new group
// may also be in several groups of the list, so the new group gets only rights that all of these
// have.
void NameGroup(AccessList& list, ::gid_t old) {
  list[{ACL_GROUP, old}] |= list[GROUP];
  unsigned rights = list[OTHERS];
  for (const auto& [who, ofGroup] : list) {
    if (who.first == ACL_GROUP) rights &= ofGroup;
  }
  list[GROUP] = rights;
}

// Returns a list that gives everybody the rights that they had, although the owner or group is
// another one now.
std::string MovedList(const std::string& bytes, const struct stat& old, const Taken& taken) {
  AccessList list = bytes.empty() ? ListOfMode(old.st_mode) : ParseList(bytes);
  const unsigned oldMask = list.contains(MASK) ? list[MASK] : RIGHTS;
  for (auto& [who, rights] : list) {
    if (IsMasked(who)) rights &= oldMask;
  }
  if (!taken.owner) {
    list.erase({ACL_USER, taken.writer});
    list[{ACL_USER, old.st_uid}] = list[OWNER];
    list[OWNER] |= unsigned{ACL_READ | ACL_WRITE};
  }
  if (!taken.group) NameGroup(list, old.st_gid);
  unsigned mask = 0;
  for (const auto& [who, rights] : list) mask |= IsMasked(who) ? rights : 0;
  // With an empty mask, Linux would treat the whole list as empty, and the people it names as
  // others.
  list[MASK] = mask != 0 ? mask : unsigned{ACL_EXECUTE};
  return BytesOf(list);
}
#else
std::optional<std::string> AccessListOf(const fs::path& /*path*/) { return ""; }

bool SetAccessList(int /*handle*/, const std::string& bytes) { return bytes.empty(); }

std::string MovedList(const std::string& /*bytes*/, const struct stat& /*old*/,
                      const Taken& /*taken*/) {
  return "none";
}
#endif

}  // namespace

void CopyAttributesFrom(int handle, const fs::path& target) {
  struct stat old = {};
  if (::lstat(target.c_str(), &old) != 0 || !S_ISREG(old.st_mode)) return;
  const std::optional<std::string> list = AccessListOf(target);
  if (!list) return;
  const std::optional<Taken> taken = TakeOwnerAndGroup(handle, old);
  if (!taken) return;
  if (!taken->Both()) {
    const bool moved = SetAccessList(handle, MovedList(*list, old, *taken));
    if (moved || !list->empty()) return;
  }
  if (SetAccessList(handle, *list)) ::fchmod(handle, ModeFor(old.st_mode, *taken));
}
#endif

}  // namespace quorvel
