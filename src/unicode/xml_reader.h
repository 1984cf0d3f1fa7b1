// XML as a series of events: elements begin and end, and text stands between them.
//
// Behind it stands an XML library, which knows namespaces and encodings. What documents do not need
// is not done: nothing is read from elsewhere, no entity may be declared, and elements do not stand
// in each other without end. So neither memory nor time grows faster than the text.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel {

// The name of an element: the namespace's own address, which prefix a document may choose for it,
// and the name in that.
struct XmlName {
  std::string_view space;
  std::string_view local;
};

// The attributes of one start tag, while its event lasts.
class XmlAttributes {
 public:
  explicit XmlAttributes(const char** pairs) : pairs_(pairs) {}

  // The value of the first one of this name, in whatever namespace; empty where there is none.
  [[nodiscard]] std::string_view Value(std::string_view local) const;

 private:
  const char** pairs_;
};

// What is called. Names, attributes and texts last as long as the call.
struct XmlEvents {
  std::function<void(const XmlName&, const XmlAttributes&)> start;
  std::function<void(const XmlName&)> end;
  std::function<void(std::string_view)>
      text;  // valid UTF-8; often only a part of what stands there
};

class XmlReader {
 public:
  explicit XmlReader(XmlEvents events);
  ~XmlReader();
  XmlReader(const XmlReader&) = delete;
  XmlReader& operator=(const XmlReader&) = delete;

  // Reads on in a document, `isLast` its end; an event's exception comes out here. False as soon as
  // it is no well-formed XML, or more than is read: nothing more must be read then.
  [[nodiscard]] bool Read(std::string_view bytes, bool isLast);

 private:
  struct Parser;
  std::unique_ptr<Parser> parser_;
};

// The values of some attributes of each element of one name.
struct AttributeRows {
  std::vector<std::vector<std::string>> rows;
  bool isDamaged = false;  // they end where the XML is at fault
};

// The values of these attributes, in this order, of each element with the name `local` in a whole
// document.
[[nodiscard]] AttributeRows AttributesOf(std::string_view xml, std::string_view local,
                                         const std::vector<std::string_view>& attributes);

}  // namespace quorvel
