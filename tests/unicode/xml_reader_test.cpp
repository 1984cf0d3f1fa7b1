#include "unicode/xml_reader.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "support/made_texts.h"

namespace quorvel {
namespace {

using namespace std::string_literals;

// The events of a document that is passed in pieces of `step` bytes.
std::string EventsOf(const std::string& xml, std::size_t step) {
  std::string log;
  XmlEvents events;
  events.start = [&](const XmlName& name, const XmlAttributes& attributes) {
    log += "<" + std::string(name.space) + "|" + std::string(name.local) + " " +
           std::string(attributes.Value("a")) + ">";
  };
  events.end = [&](const XmlName& name) { log += "</" + std::string(name.local) + ">"; };
  events.text = [&](std::string_view text) { log += text; };
  XmlReader reader(std::move(events));
  for (std::size_t place = 0; place < xml.size(); place += step) {
    if (!reader.Read(xml.substr(place, step), place + step >= xml.size())) return log + " FAULT";
  }
  return log;
}

TEST(XmlReader, TellsWhatStandsInADocument) {
  const std::pair<std::string, std::string> rows[] = {
      {"<x:p xmlns:x='urn:n' x:a='1'>\xC5\x81 &amp; &#x142;<q/></x:p>",
       "<urn:n|p 1>\xC5\x81 & \xC5\x82<|q ></q></p>"},
      {"<!DOCTYPE p SYSTEM 'file:///etc/hostname'><p>a&unknown;b</p>", "<|p >ab</p>"},
      {"\xFF\xFE<\0p\0>\0\x41\x01<\0/\0p\0>\0"s, "<|p >\xC5\x81</p>"},
      {"<?xml version='1.0' encoding='iso-8859-1'?><p>\xE9</p>", "<|p >\xC3\xA9</p>"},
      {"<p>a</q>", "<|p >a FAULT"},
      {"<p>a\xC5</p>", "<|p >a FAULT"},
      {"<p>a", "<|p >a FAULT"},
      {"<!DOCTYPE p [<!ENTITY e 'eeee'>]><p>&e;</p>", " FAULT"},
      {"no XML", " FAULT"}};
  for (const auto& [xml, events] : rows) {
    EXPECT_EQ(EventsOf(xml, xml.size()), events);
    EXPECT_EQ(EventsOf(xml, 1), events);
  }
}

TEST(XmlReader, IsBounded) {
  const auto nested = [](int depth) { return Repeated("<p>", depth) + Repeated("</p>", depth); };
  EXPECT_EQ(EventsOf(nested(1000), 65536).find("FAULT"), std::string::npos);
  EXPECT_NE(EventsOf(nested(1001), 65536).find("FAULT"), std::string::npos);
}

TEST(XmlReader, HandsOnWhatIsThrown) {
  XmlEvents events;
  events.start = [](const XmlName&, const XmlAttributes&) { throw std::runtime_error("no room"); };
  events.end = [](const XmlName&) { ADD_FAILURE(); };
  events.text = [](std::string_view) { ADD_FAILURE(); };
  XmlReader reader(std::move(events));
  EXPECT_THROW(static_cast<void>(reader.Read("<p>a</p>", true)), std::runtime_error);
}

}  // namespace
}  // namespace quorvel
