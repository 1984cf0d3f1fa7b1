// The functions of libzip, which is loaded when the first archive is opened.
//
// libzip needs a library for encryption. Loading both takes longer than listing a short text, and
// most documents are not archives. So on Linux the programs are not linked with libzip.
#pragma once

#include <zip.h>

#include "util/fault.h"

namespace quorvel {

struct ZipLibrary {
  decltype(&zip_discard) discard = nullptr;
  decltype(&zip_error_code_system) errorCodeSystem = nullptr;
  decltype(&zip_error_code_zip) errorCodeZip = nullptr;
  decltype(&zip_error_fini) errorFini = nullptr;
  decltype(&zip_error_init) errorInit = nullptr;
  decltype(&zip_fclose) closeEntry = nullptr;
  decltype(&zip_file_get_error) fileGetError = nullptr;
  decltype(&zip_fopen_index) openIndex = nullptr;
  decltype(&zip_fread) read = nullptr;
  decltype(&zip_get_error) getError = nullptr;
  decltype(&zip_open_from_source) openFromSource = nullptr;
  decltype(&zip_source_buffer_fragment_create) createSource = nullptr;
  decltype(&zip_source_free) freeSource = nullptr;
  decltype(&zip_stat) stat = nullptr;
  decltype(&zip_stat_init) initStat = nullptr;
};

// Loads libzip, unless it is loaded. It stays loaded until the program ends. `path` is the archive
// to be opened. Fault: `libraryMissing`, with the system's reason.
[[nodiscard]] Result<ZipLibrary> LoadZipLibrary(const std::string& path);

}  // namespace quorvel
