#include "unicode/packed_documents.h"

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <set>
#include <string_view>
#include <utility>

#include "files/path_names.h"
#include "input/zip_archive.h"
#include "unicode/xml_reader.h"
#include "util/ascii.h"

namespace quorvel {
namespace {

using KindName = std::pair<std::string_view, PackedKind>;

constexpr std::array KINDS = {KindName("docx", PackedKind::docx), KindName("odt", PackedKind::odt),
                              KindName("epub", PackedKind::epub)};

using Rows = std::vector<std::vector<std::string>>;

// The size limit for entries that only refer to others, in bytes: far above that of any real
// document.
constexpr std::uint64_t LONGEST_DIRECTORY = 4194304;

// The value of two hexadecimal digits at the front, or nothing.
std::optional<char> HexByte(std::string_view digits) {
  constexpr std::string_view DIGITS = "0123456789abcdef";
  if (digits.size() < 2) return std::nullopt;
  const std::size_t high = DIGITS.find(LowerAscii(digits.substr(0, 1)));
  const std::size_t low = DIGITS.find(LowerAscii(digits.substr(1, 1)));
  if (high == std::string_view::npos || low == std::string_view::npos) return std::nullopt;
  return static_cast<char>(high << 4U | low);
}

std::string PercentDecoded(std::string_view reference) {
  std::string decoded;
  for (std::size_t i = 0; i < reference.size(); ++i) {
    const std::optional<char> byte =
        reference[i] == '%' ? HexByte(reference.substr(i + 1)) : std::nullopt;
    decoded += byte.value_or(reference[i]);
    if (byte) i += 2;
  }
  return decoded;
}

// The folder of an entry with its "/", or empty.
std::string_view FolderOf(std::string_view entry) { return entry.substr(0, entry.rfind('/') + 1); }

// Resolves a reference in an entry of `folder` to the name of an entry.
std::string EntryOf(std::string_view folder, std::string_view reference) {
  reference = reference.substr(0, reference.find('#'));
  const std::string path =
      (reference.starts_with('/') ? "" : std::string(folder)) + PercentDecoded(reference);
  std::vector<std::string_view> names;
  std::string_view rest = path;
  while (!rest.empty()) {
    const std::string_view name = rest.substr(0, rest.find('/'));
    rest.remove_prefix(std::min(name.size() + 1, rest.size()));
    if (name == ".." && !names.empty()) names.pop_back();
    if (!name.empty() && name != "." && name != "..") names.push_back(name);
  }
  std::string entry;
  for (const std::string_view name : names) (entry += entry.empty() ? "" : "/") += name;
  return entry;
}

// Extracts the parts of one archive.
class PartTaker {
 public:
  PartTaker(const InputBytes& input, PackedKind kind, const BodyLimits& limits)
      : archive_(input), limit_(limits.hard) {
    taken_.kind = kind;
  }

  // The bytes of an entry that only refers to others. Empty when it is missing or too long.
  std::string Directory(const std::string& entry) {
    std::string bytes;
    const Result<UnpackedEntry> unpacked =
        archive_.Unpack(entry, LONGEST_DIRECTORY, AppendTo(bytes));
    if (!unpacked) {
      const bool isTooLong = unpacked.Error().kind == FaultKind::bodyTooLarge;
      if (!isTooLong) fault_ = unpacked.Error();
      return {};
    }
    if (unpacked->isDamaged && !bytes.empty()) MarkDamaged();
    return bytes;
  }

  // Unpacks an entry and adds it to the parts. Returns false after any fault.
  [[nodiscard]] bool Take(const std::string& entry) {
    std::string bytes;
    const Result<UnpackedEntry> unpacked =
        archive_.Unpack(entry, limit_ - taken_.length, AppendTo(bytes));
    if (!unpacked) {
      fault_ = unpacked.Error();
      return false;
    }
    taken_.length += unpacked->length;
    if (unpacked->isDamaged) MarkDamaged();
    if (!bytes.empty()) taken_.parts.push_back(std::move(bytes));
    return true;
  }

  void MarkDamaged() { taken_.isDamaged = true; }

  [[nodiscard]] const std::optional<Fault>& Error() const { return fault_; }

  [[nodiscard]] UnpackedParts Taken() { return std::move(taken_); }

 private:
  static std::function<bool(std::string_view)> AppendTo(std::string& bytes) {
    return [&bytes](std::string_view block) {
      bytes += block;
      return true;
    };
  }

  ArchiveReader archive_;
  std::uint64_t limit_;
  UnpackedParts taken_;
  std::optional<Fault> fault_;
};

// The entry of the first internal relationship whose type ends with `type`, or empty.
std::string RelatedEntry(const Rows& relations, std::string_view type, std::string_view folder) {
  const auto found = std::find_if(relations.begin(), relations.end(), [&](const auto& row) {
    return row[0].ends_with(type) && row[2] != "External";
  });
  return found == relations.end() ? std::string() : EntryOf(folder, (*found)[1]);
}

Rows RelationsOf(std::string_view entry, PartTaker& taker) {
  const std::string_view folder = FolderOf(entry);
  const std::string name =
      std::string(folder).append("_rels/").append(entry.substr(folder.size())) + ".rels";
  return AttributesOf(taker.Directory(name), "Relationship", {"Type", "Target", "TargetMode"}).rows;
}

std::vector<std::string> WordEntries(bool notes, PartTaker& taker) {
  std::string body = RelatedEntry(RelationsOf("", taker), "/officeDocument", "");
  if (body.empty()) body = BODY_ENTRY;
  std::vector<std::string> entries = {body};
  if (!notes) return entries;
  const Rows relations = RelationsOf(body, taker);
  for (const std::string_view type : {"/footnotes", "/endnotes"}) {
    std::string entry = RelatedEntry(relations, type, FolderOf(body));
    if (!entry.empty()) entries.push_back(std::move(entry));
  }
  return entries;
}

// The entries that a book declares as encrypted.
std::set<std::string> EncryptedEntries(PartTaker& taker) {
  std::set<std::string> entries;
  const std::string xml = taker.Directory("META-INF/encryption.xml");
  for (const auto& row : AttributesOf(xml, "CipherReference", {"URI"}).rows) {
    entries.insert(EntryOf("", row[0]));
  }
  return entries;
}

bool IsChapter(std::string_view mediaType) {
  return mediaType.find("html") != std::string_view::npos || mediaType == "text/x-oeb1-document";
}

// The entries of a book's chapters. Encrypted chapters are left out, and the book counts as
// damaged.
std::vector<std::string> BookEntries(PartTaker& taker) {
  const Rows roots =
      AttributesOf(taker.Directory("META-INF/container.xml"), "rootfile", {"full-path"}).rows;
  if (roots.empty()) return {};
  const std::string& package = roots.front()[0];
  const std::string xml = taker.Directory(package);
  const AttributeRows manifest = AttributesOf(xml, "item", {"id", "href", "media-type"});
  if (manifest.isDamaged) taker.MarkDamaged();
  std::map<std::string, const std::vector<std::string>*> items;
  for (const auto& row : manifest.rows) items.emplace(row[0], &row);
  const std::set<std::string> encrypted = EncryptedEntries(taker);
  std::set<std::string> seen;
  std::vector<std::string> entries;
  for (const auto& row : AttributesOf(xml, "itemref", {"idref"}).rows) {
    const auto item = items.find(row[0]);
    if (item == items.end()) {
      taker.MarkDamaged();
      continue;
    }
    if (!IsChapter((*item->second)[2])) continue;
    std::string entry = EntryOf(FolderOf(package), (*item->second)[1]);
    if (encrypted.contains(entry)) {
      taker.MarkDamaged();
    } else if (seen.insert(entry).second) {
      entries.push_back(std::move(entry));
    }
  }
  return entries;
}

std::vector<std::string> TextEntries(PackedKind kind, bool notes, PartTaker& taker) {
  switch (kind) {
    case PackedKind::docx:
      return WordEntries(notes, taker);
    case PackedKind::odt:
      return {"content.xml"};
    case PackedKind::epub:
      break;
  }
  return BookEntries(taker);
}

std::optional<PackedKind> KindOfName(std::string_view path) {
  const std::string extension = LowerExtensionOf(path);
  const auto* const found = std::ranges::find(KINDS, extension, &KindName::first);
  if (found == KINDS.end()) return std::nullopt;
  return found->second;
}

}  // namespace

bool IsPackedName(std::string_view path, Reading reading) {
  const std::optional<PackedKind> kind = KindOfName(path);
  return kind && (reading == Reading::unicode || *kind == PackedKind::docx);
}

std::optional<PackedKind> PackedKindOf(const InputBytes& input) {
  return BeginsLikeArchive(input) ? KindOfName(input.Path()) : std::nullopt;
}

Result<UnpackedParts> UnpackTextParts(const InputBytes& input, PackedKind kind,
                                      const UnicodeOptions& options, const BodyLimits& limits,
                                      Progress& progress) {
  PartTaker taker(input, kind, limits);
  const std::vector<std::string> entries = TextEntries(kind, options.notes, taker);
  if (taker.Error()) return *taker.Error();
  if (entries.empty()) taker.MarkDamaged();
  for (const std::string& entry : entries) {
    if (!taker.Take(entry)) return *taker.Error();
    progress.YieldNow();
    if (progress.StopRequested()) return Fault{FaultKind::stopped, input.Path(), {}};
  }
  return taker.Taken();
}

}  // namespace quorvel
