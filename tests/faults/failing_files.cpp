// A library that is loaded before the C library (LD_PRELOAD) and makes one file operation of the
// program fail. It numbers the operations on paths below one folder, starting at 1.
//
// QUORVEL_FAULT_BELOW  the folder
// QUORVEL_FAULT_LOG    a file that gets a line for each operation: its name, a blank, the path
// QUORVEL_FAULT        what happens at which operation: its number, a blank and "E28" for error
//                      number 28, "S" for a short transfer, "K" for the end of the process, "R"
//                      and a path for a file that someone writes anew just then, with what
//                      stands in the file of that name and ".new";
//                      with "+" behind it, at every later operation too; with "w" only where
//                      room is taken on the disk, with "d" only where something is removed

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>

namespace {

// The function of the C library with this name.
template <typename Function>
Function* Real(const char* name) {
  return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

struct Watch {
  const char* below = std::getenv("QUORVEL_FAULT_BELOW");
  int log = -1;
  long at = 0;
  char kind = ' ';
  int error = 0;
  std::string renewed;  // the file that is written at that moment
  bool stays = false;
  bool onlyRoom = false;
  bool onlyRemovals = false;
  long count = 0;
  std::map<int, std::string> names;  // of the open files

  Watch() {
    const char* fault = std::getenv("QUORVEL_FAULT");
    if (fault == nullptr) return;
    log = Real<decltype(::open)>("open")(std::getenv("QUORVEL_FAULT_LOG"),
                                         O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666);
    if (*fault == '\0') return;
    char* rest = nullptr;
    at = std::strtol(fault, &rest, 10);
    kind = rest[1];
    if (kind == 'R') {
      renewed = rest + 2;
      return;
    }
    error = static_cast<int>(std::strtol(rest + 2, &rest, 10));
    stays = std::strchr(rest, '+') != nullptr;
    onlyRoom = std::strchr(rest, 'w') != nullptr;
    onlyRemovals = std::strchr(rest, 'd') != nullptr;
  }
};

// It exists until the last file is closed.
Watch& TheWatch() {
  // NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
  static auto* watch = new Watch;
  return *watch;
}

// Like an editor that overwrites the existing file.
void WriteAnew(const std::string& path) {
  std::string bytes(1 << 20, '\0');
  auto* const open = Real<decltype(::open)>("open");
  const int from = open((path + ".new").c_str(), O_RDONLY | O_CLOEXEC);
  const int into = open(path.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC);
  const ssize_t length = Real<decltype(::read)>("read")(from, bytes.data(), bytes.size());
  if (Real<decltype(::write)>("write")(into, bytes.data(), length) != length) std::abort();
  for (const int handle : {from, into}) Real<decltype(::close)>("close")(handle);
}

enum class Effect { none, fails, isShort };

// Counts an operation on a watched path, and returns what happens to it.
Effect EffectOn(const char* operation, const char* path, bool takesRoom = false) {
  Watch& watch = TheWatch();
  if (watch.below == nullptr || path == nullptr) return Effect::none;
  if (std::strncmp(path, watch.below, std::strlen(watch.below)) != 0) return Effect::none;
  ++watch.count;
  if (::dprintf(watch.log, "%s %s\n", operation, path) < 0) std::abort();
  const bool hit = watch.count == watch.at || (watch.stays && watch.count > watch.at);
  if (!hit || (watch.onlyRoom && !takesRoom)) return Effect::none;
  if (watch.onlyRemovals && std::strcmp(operation, "remove") != 0) return Effect::none;
  if (watch.kind == 'K') ::kill(::getpid(), SIGKILL);
  if (watch.kind == 'R') {
    WriteAnew(watch.renewed);
    return Effect::none;
  }
  errno = watch.error;
  return watch.kind == 'S' ? Effect::isShort : Effect::fails;
}

bool Fails(const char* operation, const char* path, bool takesRoom = false) {
  return EffectOn(operation, path, takesRoom) == Effect::fails;
}

const char* NameOf(int handle) { return TheWatch().names[handle].c_str(); }

}  // namespace

// These have the names of the C library.
// NOLINTBEGIN(readability-identifier-naming)
extern "C" {

int open(const char* path, int flags, ...) {
  std::va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = va_arg(arguments, mode_t);
  va_end(arguments);
  const bool creates = (static_cast<unsigned>(flags) & unsigned{O_CREAT}) != 0;
  if (Fails(creates ? "create" : "open", path, creates)) return -1;
  const int handle = Real<decltype(::open)>("open")(path, flags, mode);
  if (handle >= 0) TheWatch().names[handle] = path;
  return handle;
}

ssize_t read(int handle, void* into, size_t length) {
  const Effect effect = EffectOn("read", NameOf(handle));
  if (effect == Effect::fails) return -1;
  if (effect == Effect::isShort) length = (length + 1) / 2;
  return Real<decltype(::read)>("read")(handle, into, length);
}

ssize_t write(int handle, const void* from, size_t length) {
  const Effect effect = EffectOn("write", NameOf(handle), true);
  if (effect == Effect::fails) return -1;
  if (effect == Effect::isShort) length = (length + 1) / 2;
  return Real<decltype(::write)>("write")(handle, from, length);
}

int fsync(int handle) {
  return Fails("fsync", NameOf(handle), true) ? -1 : Real<decltype(::fsync)>("fsync")(handle);
}

// The handle is closed even if close reports an error.
int close(int handle) {
  const bool fails = Fails("close", NameOf(handle), true);
  const int error = errno;
  TheWatch().names.erase(handle);
  const int result = Real<decltype(::close)>("close")(handle);
  if (!fails) return result;
  errno = error;
  return -1;
}

int stat(const char* path, struct stat* status) noexcept {
  return Fails("stat", path) ? -1 : Real<decltype(::stat)>("stat")(path, status);
}

int lstat(const char* path, struct stat* status) noexcept {
  return Fails("stat", path) ? -1 : Real<decltype(::lstat)>("lstat")(path, status);
}

int fstat(int handle, struct stat* status) noexcept {
  return Fails("stat", NameOf(handle)) ? -1 : Real<decltype(::fstat)>("fstat")(handle, status);
}

int access(const char* path, int mode) noexcept {
  return Fails("access", path) ? -1 : Real<decltype(::access)>("access")(path, mode);
}

char* realpath(const char* path, char* resolved) noexcept {
  return Fails("stat", path) ? nullptr : Real<decltype(::realpath)>("realpath")(path, resolved);
}

int fchown(int handle, uid_t owner, gid_t group) noexcept {
  return Fails("change", NameOf(handle)) ? -1
                                         : Real<decltype(::fchown)>("fchown")(handle, owner, group);
}

int fchmod(int handle, mode_t mode) noexcept {
  return Fails("change", NameOf(handle)) ? -1 : Real<decltype(::fchmod)>("fchmod")(handle, mode);
}

ssize_t lgetxattr(const char* path, const char* name, void* value, size_t size) noexcept {
  if (Fails("stat", path)) return -1;
  return Real<decltype(::lgetxattr)>("lgetxattr")(path, name, value, size);
}

int fsetxattr(int handle, const char* name, const void* value, size_t size, int flags) noexcept {
  if (Fails("change", NameOf(handle))) return -1;
  return Real<decltype(::fsetxattr)>("fsetxattr")(handle, name, value, size, flags);
}

int fremovexattr(int handle, const char* name) noexcept {
  if (Fails("change", NameOf(handle))) return -1;
  return Real<decltype(::fremovexattr)>("fremovexattr")(handle, name);
}

int mkdir(const char* path, mode_t mode) noexcept {
  return Fails("create", path, true) ? -1 : Real<decltype(::mkdir)>("mkdir")(path, mode);
}

int rename(const char* from, const char* to) noexcept {
  return Fails("rename", to, true) ? -1 : Real<decltype(::rename)>("rename")(from, to);
}

int remove(const char* path) noexcept {
  return Fails("remove", path) ? -1 : Real<decltype(::remove)>("remove")(path);
}

FILE* fdopen(int handle, const char* mode) noexcept {
  return Fails("open", NameOf(handle)) ? nullptr : Real<decltype(::fdopen)>("fdopen")(handle, mode);
}

size_t fread(void* into, size_t size, size_t count, FILE* file) {
  if (!Fails("fread", NameOf(::fileno(file)))) {
    return Real<decltype(::fread)>("fread")(into, size, count, file);
  }
  file->_flags |= 0x20;  // set the error flag of the stream
  return 0;
}

int fseeko(FILE* file, off_t offset, int origin) {
  if (Fails("seek", NameOf(::fileno(file)))) return -1;
  return Real<decltype(::fseeko)>("fseeko")(file, offset, origin);
}

int fclose(FILE* file) {
  TheWatch().names.erase(::fileno(file));
  return Real<decltype(::fclose)>("fclose")(file);
}

}  // extern "C"
// NOLINTEND(readability-identifier-naming)
