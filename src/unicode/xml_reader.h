// An XML reader that reports events: elements begin and end, with text between them.
//
// It uses an XML library that handles namespaces and encodings. Features that documents do not need
// are disabled: external data, entity declarations and unlimited nesting. So memory and time grow
// no faster than the input.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel {

// The name of an element: the address of its namespace, whatever prefix the document uses for it,
// and the local name.
struct XmlName {
  std::string_view space;
  std::string_view local;
};

// The attributes of a start tag. Valid only during its event.
class XmlAttributes {
 public:
  explicit XmlAttributes(const char** pairs) : pairs_(pairs) {}

  // The value of the first attribute with this local name in any namespace, or empty.
  [[nodiscard]] std::string_view Value(std::string_view local) const;

 private:
  const char** pairs_;
};

// The callbacks. Names, attributes and texts are valid only during the call.
struct XmlEvents {
  std::function<void(const XmlName&, const XmlAttributes&)> start;
  std::function<void(const XmlName&)> end;
  std::function<void(std::string_view)> text;  // valid UTF-8; often only a part of the text
};

class XmlReader {
 public:
  explicit XmlReader(XmlEvents events);
  ~XmlReader();
  XmlReader(const XmlReader&) = delete;
  XmlReader& operator=(const XmlReader&) = delete;

  // Reads the next bytes of a document; `isLast` marks its end. Rethrows exceptions of the
  // callbacks. Returns false when the XML is not well-formed or uses a disabled feature; nothing
  // more may be read then.
  [[nodiscard]] bool Read(std::string_view bytes, bool isLast);

 private:
  struct Parser;
  std::unique_ptr<Parser> parser_;
};

// The values of some attributes, one row for each element.
struct AttributeRows {
  std::vector<std::vector<std::string>> rows;
  bool isDamaged = false;  // the XML is invalid after the last row
};

// Returns the values of `attributes`, in this order, for each element with the name `local` in a
// whole document.
[[nodiscard]] AttributeRows AttributesOf(std::string_view xml, std::string_view local,
                                         const std::vector<std::string_view>& attributes);

}  // namespace quorvel
