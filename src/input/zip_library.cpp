#include "input/zip_library.h"

// FUNCTION(name) is the address of a function of libzip. Versions of the library that lack one of
// them have another file name.
#ifdef QUORVEL_ZIP_LIBRARY
#include <dlfcn.h>
#define FUNCTION(name) reinterpret_cast<decltype(&::name)>(::dlsym(library, #name))
#else
#define FUNCTION(name) &::name
#endif

namespace quorvel {

Result<ZipLibrary> LoadZipLibrary([[maybe_unused]] const std::string& path) {
#ifdef QUORVEL_ZIP_LIBRARY
  void* const library = ::dlopen(QUORVEL_ZIP_LIBRARY, RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) return Fault{FaultKind::libraryMissing, path, ::dlerror()};
#endif
  return ZipLibrary{
      .discard = FUNCTION(zip_discard),
      .errorCodeSystem = FUNCTION(zip_error_code_system),
      .errorCodeZip = FUNCTION(zip_error_code_zip),
      .errorFini = FUNCTION(zip_error_fini),
      .errorInit = FUNCTION(zip_error_init),
      .closeEntry = FUNCTION(zip_fclose),
      .fileGetError = FUNCTION(zip_file_get_error),
      .openIndex = FUNCTION(zip_fopen_index),
      .read = FUNCTION(zip_fread),
      .getError = FUNCTION(zip_get_error),
      .openFromSource = FUNCTION(zip_open_from_source),
      .createSource = FUNCTION(zip_source_buffer_fragment_create),
      .freeSource = FUNCTION(zip_source_free),
      .stat = FUNCTION(zip_stat),
      .initStat = FUNCTION(zip_stat_init),
  };
}

}  // namespace quorvel
