#include "unicode/xml_reader.h"

#include <expat.h>

#include <exception>
#include <new>
#include <utility>

namespace quorvel {
namespace {

// Separates the two parts of a name. It cannot occur in a namespace address.
constexpr char SEPARATOR = '\n';

// The maximum nesting depth, about ten times that of real documents.
constexpr int MOST_OPEN_ELEMENTS = 1000;

XmlName NameOf(std::string_view name) {
  const std::size_t separator = name.rfind(SEPARATOR);
  if (separator == std::string_view::npos) return {{}, name};
  return {name.substr(0, separator), name.substr(separator + 1)};
}

}  // namespace

struct XmlReader::Parser {
  XML_Parser library = nullptr;
  XmlEvents events;
  int openElements = 0;
  bool refused = false;
  std::exception_ptr thrown;  // exceptions must not pass through the library

  static Parser& Of(void* data) { return *static_cast<Parser*>(data); }

  template <typename Event>
  void Call(const Event& event) {
    if (refused || thrown) return;
    try {
      event();
    } catch (...) {
      thrown = std::current_exception();
      XML_StopParser(library, XML_FALSE);
    }
  }

  void Refuse() {
    refused = true;
    XML_StopParser(library, XML_FALSE);
  }

  static void XMLCALL OnStart(void* data, const XML_Char* name, const XML_Char** attributes) {
    Parser& parser = Of(data);
    if (++parser.openElements > MOST_OPEN_ELEMENTS) {
      parser.Refuse();
      return;
    }
    parser.Call([&] { parser.events.start(NameOf(name), XmlAttributes(attributes)); });
  }

  static void XMLCALL OnEnd(void* data, const XML_Char* name) {
    Parser& parser = Of(data);
    --parser.openElements;
    parser.Call([&] { parser.events.end(NameOf(name)); });
  }

  static void XMLCALL OnText(void* data, const XML_Char* text, int length) {
    Parser& parser = Of(data);
    parser.Call([&] { parser.events.text({text, static_cast<std::size_t>(length)}); });
  }

  static void XMLCALL OnEntity(void* data, const XML_Char*, int, const XML_Char*, int,
                               const XML_Char*, const XML_Char*, const XML_Char*, const XML_Char*) {
    Of(data).Refuse();
  }
};

std::string_view XmlAttributes::Value(std::string_view local) const {
  for (const char** pair = pairs_; *pair != nullptr; pair += 2) {
    if (NameOf(*pair).local == local) return pair[1];
  }
  return {};
}

XmlReader::XmlReader(XmlEvents events) : parser_(std::make_unique<Parser>()) {
  parser_->events = std::move(events);
  parser_->library = XML_ParserCreateNS(nullptr, SEPARATOR);
  if (parser_->library == nullptr) throw std::bad_alloc();
  XML_SetUserData(parser_->library, parser_.get());
  XML_SetElementHandler(parser_->library, Parser::OnStart, Parser::OnEnd);
  XML_SetCharacterDataHandler(parser_->library, Parser::OnText);
  XML_SetEntityDeclHandler(parser_->library, Parser::OnEntity);
}

XmlReader::~XmlReader() { XML_ParserFree(parser_->library); }

bool XmlReader::Read(std::string_view bytes, bool isLast) {
  XML_Parser library = parser_->library;
  const XML_Status status =
      XML_Parse(library, bytes.data(), static_cast<int>(bytes.size()), isLast ? 1 : 0);
  if (parser_->thrown) std::rethrow_exception(parser_->thrown);
  if (status == XML_STATUS_OK) return true;
  if (XML_GetErrorCode(library) == XML_ERROR_NO_MEMORY) throw std::bad_alloc();
  return false;
}

AttributeRows AttributesOf(std::string_view xml, std::string_view local,
                           const std::vector<std::string_view>& attributes) {
  AttributeRows found;
  XmlEvents events;
  events.start = [&](const XmlName& name, const XmlAttributes& values) {
    if (name.local != local) return;
    std::vector<std::string>& row = found.rows.emplace_back();
    for (const std::string_view attribute : attributes) row.emplace_back(values.Value(attribute));
  };
  events.end = [](const XmlName&) {};
  events.text = [](std::string_view) {};
  found.isDamaged = !XmlReader(std::move(events)).Read(xml, true);
  return found;
}

}  // namespace quorvel
