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

// Only root can give a file to another user, or to a group that they are not in. Where the old
// owner or group is lost so, the mode means other people than it did. Then an access list gives the
// old ones what they had, by name; where the system has no such lists, the mode is cut down to what
// all of those had whom it may mean now.

namespace quorvel {

namespace fs = std::filesystem;

#ifdef _WIN32
void TakeAttributesOf(int /*handle*/, const fs::path& /*target*/) {}
#else
namespace {

constexpr ::mode_t RIGHTS = 7;  // of one class of users

// What of the old file's the new one has got, and who owns the new one otherwise.
struct Taken {
  bool owner = false;
  bool group = false;
  ::uid_t writer = 0;

  [[nodiscard]] bool Both() const { return owner && group; }
};

// Nothing where the system does not say what it did: some say yes and do nothing.
std::optional<Taken> TakeOwnerAndGroup(int handle, const struct stat& old) {
  if (::fchown(handle, old.st_uid, old.st_gid) != 0) {
    [[maybe_unused]] const int given = ::fchown(handle, static_cast<::uid_t>(-1), old.st_gid);
  }
  struct stat now = {};
  if (::fstat(handle, &now) != 0) return std::nullopt;
  return Taken{now.st_uid == old.st_uid, now.st_gid == old.st_gid, now.st_uid};
}

// A right to run the file as its owner or group goes with either of them.
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

// An entry's kind and, of a user or a group that it names, the number; with the rights it gives.
using Who = std::pair<unsigned, std::uint32_t>;
using AccessList = std::map<Who, unsigned>;

constexpr auto NOBODY_NAMED = static_cast<std::uint32_t>(ACL_UNDEFINED_ID);
constexpr Who OWNER = {ACL_USER_OBJ, NOBODY_NAMED};
constexpr Who GROUP = {ACL_GROUP_OBJ, NOBODY_NAMED};
constexpr Who MASK = {ACL_MASK, NOBODY_NAMED};
constexpr Who OTHERS = {ACL_OTHER, NOBODY_NAMED};

// What the mask limits.
bool IsMasked(const Who& who) {
  return who.first == ACL_USER || who.first == ACL_GROUP_OBJ || who.first == ACL_GROUP;
}

bool HasNoLists(int errorNumber) {
  return errorNumber == ENODATA || errorNumber == ENOTSUP || errorNumber == ENOSYS;
}

// The access list of a file as the system hands it out, empty where there is none but the mode;
// nothing where it will not say.
std::optional<std::string> AccessListOf(const fs::path& path) {
  std::string bytes(XATTR_SIZE_MAX, '\0');
  const ssize_t length = ::lgetxattr(path.c_str(), ACCESS_LIST, bytes.data(), bytes.size());
  if (length < 0 && !HasNoLists(errno)) return std::nullopt;
  bytes.resize(static_cast<std::size_t>(std::max<ssize_t>(length, 0)));
  return bytes;
}

// Where the list is empty the file has none afterwards. A new one may have come from its folder.
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

// The entries are in the order that the system wants.
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

// Names the old group, which the file does not have any more. Those of the new one, who may be in
// several groups of the list, get by it nothing that the list does not give them anyhow.
void NameGroup(AccessList& list, ::gid_t old) {
  list[{ACL_GROUP, old}] |= list[GROUP];
  unsigned rights = list[OTHERS];
  for (const auto& [who, ofGroup] : list) {
    if (who.first == ACL_GROUP) rights &= ofGroup;
  }
  list[GROUP] = rights;
}

// The list by which all have the rights that they had though owner or group are others now.
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
  // Where the mask has nothing Linux takes the whole list for empty, and those whom it names for
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

void TakeAttributesOf(int handle, const fs::path& target) {
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
