// SPDX-License-Identifier: Apache-2.0
#include "fuzz/XmlMutator.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace zevo::fuzz {
namespace {

using namespace std::string_view_literals;

constexpr std::array kSnippets = {"<a>"sv,
                                  "</a>"sv,
                                  "<a/>"sv,
                                  "<a />"sv,
                                  "<b\n>x</b\t>"sv,
                                  "<a></a>"sv,
                                  "<a b='c'/>"sv,
                                  R"(<a b="1" b='2'/>)"sv,
                                  "<p:a xmlns:p='u'/>"sv,
                                  "<a xmlns=''/>"sv,
                                  "<a xmlns='urn:x'>y</a>"sv,
                                  "<p:a/>"sv,
                                  "<:a/>"sv,
                                  "<a:/>"sv,
                                  "<\xC3\xA9/>"sv,
                                  "< a/>"sv,
                                  "<a"sv,
                                  "</"sv,
                                  "<"sv,
                                  ">"sv,
                                  "/>"sv,
                                  "<!"sv,
                                  "<!-"sv,
                                  "<?"sv,
                                  "<!-- c -->"sv,
                                  "<!---->"sv,
                                  "<!-- - -->"sv,
                                  "<!-- -- -->"sv,
                                  "<!-- --->"sv,
                                  "<!--\r\n\xC3\xA9\r-->"sv,
                                  "<!--"sv,
                                  "-->"sv,
                                  "<![CDATA[]]>"sv,
                                  "<![CDATA[x<&]]>"sv,
                                  "<![CDATA["sv,
                                  "]]>"sv,
                                  "]]"sv,
                                  "]]&gt;"sv,
                                  "]]\r>"sv,
                                  "]>"sv,
                                  "<?pi?>"sv,
                                  "<?pi data?>"sv,
                                  "<?xml version='1.0'?>"sv,
                                  "<?XML x?>"sv,
                                  "<!DOCTYPE a>"sv,
                                  "<!DOCTYPE a [<!ENTITY e 'x'>]>"sv,
                                  "&amp;"sv,
                                  "&lt;"sv,
                                  "&gt;"sv,
                                  "&quot;"sv,
                                  "&apos;"sv,
                                  "&e;"sv,
                                  "&"sv,
                                  "&amp"sv,
                                  "&;"sv,
                                  "&#;"sv,
                                  "&#x;"sv,
                                  "&#10;"sv,
                                  "&#13;"sv,
                                  "&#xD;"sv,
                                  "&#x80;"sv,
                                  "&#233;"sv,
                                  "&#x20AC;"sv,
                                  "&#x1F600;"sv,
                                  "&#0;"sv,
                                  "&#1;"sv,
                                  "&#xD800;"sv,
                                  "&#xFFFE;"sv,
                                  "&#x110000;"sv,
                                  "&#00000000065;"sv,
                                  "&#x00000041;"sv,
                                  "&#-1;"sv,
                                  "&#+65;"sv,
                                  "&# 65;"sv,
                                  "&#X41;"sv,
                                  "&#4294967361;"sv,
                                  "\r"sv,
                                  "\r\n"sv,
                                  "\n"sv,
                                  "\t"sv,
                                  "\n\r"sv,
                                  " "sv,
                                  "\x01"sv,
                                  "\x0B"sv,
                                  "\x1F"sv,
                                  "\x7F"sv,
                                  "\0"sv,
                                  "\x80"sv,
                                  "\xBF"sv,
                                  "\xC0\x80"sv,
                                  "\xC1\xBF"sv,
                                  "\xC2\x80"sv,
                                  "\xC2\x85"sv,
                                  "\xC3\xA9"sv,
                                  "\xC3"sv,
                                  "\xE0\x9F\xBF"sv,
                                  "\xE0\xA0\x80"sv,
                                  "\xE2\x82\xAC"sv,
                                  "\xE2\x82"sv,
                                  "\xE2\x80\xA8"sv,
                                  "\xED\x9F\xBF"sv,
                                  "\xED\xA0\x80"sv,
                                  "\xEE\x80\x80"sv,
                                  "\xEF\xBB\xBF"sv,
                                  "\xEF\xBF\xBD"sv,
                                  "\xEF\xBF\xBE"sv,
                                  "\xEF\xBF\xBF"sv,
                                  "\xF0\x8F\xBF\xBF"sv,
                                  "\xF0\x90\x80\x80"sv,
                                  "\xF0\x9F\x98\x80"sv,
                                  "\xF4\x8F\xBF\xBF"sv,
                                  "\xF4\x90\x80\x80"sv,
                                  "\xF5\x80\x80\x80"sv,
                                  "\xF8\x88\x80\x80\x80"sv,
                                  "\xFF"sv,
                                  "\xFE\xFF"sv};

constexpr std::array kInTags = {" "sv,
                                "\n"sv,
                                "\r\n"sv,
                                "\t"sv,
                                " a='b'"sv,
                                R"( a="b")"sv,
                                " a='b' a='c'"sv,
                                " a='1>2'"sv,
                                " a='<'"sv,
                                " a='&amp;'"sv,
                                " a='&#10;'"sv,
                                " a='\n'"sv,
                                " a='\xC3\xA9'"sv,
                                " a=''"sv,
                                " a = 'b'"sv,
                                " a"sv,
                                " a='"sv,
                                "a='b'"sv,
                                " xmlns='urn:x'"sv,
                                " xmlns=''"sv,
                                " xmlns:p='urn:p'"sv,
                                " xmlns:p='urn:p' xmlns:q='urn:p'"sv,
                                " p:a='b'"sv,
                                " p:a='b' q:a='c'"sv,
                                " xmlns:p=''"sv,
                                " xmlns:xml='http://www.w3.org/XML/1998/namespace'"sv,
                                " xml:lang='pt'"sv,
                                " xml:space='preserve'"sv,
                                " xmlns:xmlns='u'"sv,
                                " xmlns='http://www.w3.org/2000/xmlns/'"sv,
                                " xmlns:p='http://www.w3.org/XML/1998/namespace'"sv,
                                " xmlns:p='a b'"sv,
                                " xmlns:p='%'"sv,
                                " xsi:schemaLocation='a b' xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance'"sv,
                                " :a='b'"sv,
                                " a:b:c='d'"sv,
                                "/"sv,
                                "p:"sv,
                                ":"sv,
                                "a"sv,
                                "-"sv,
                                "."sv,
                                "1"sv,
                                "\xC3\xA9"sv,
                                "'"sv,
                                R"(")"sv,
                                "="sv,
                                "<"sv,
                                "\x01"sv};

constexpr std::array kDeclarations = {""sv,
                                      "<?xml version='1.0'?>"sv,
                                      R"(<?xml version="1.0" encoding="UTF-8"?>)"sv,
                                      "<?xml version='1.0' encoding='windows-1252'?>"sv,
                                      "<?xml version='1.0' encoding='Windows-1252' standalone='yes'?>"sv,
                                      "<?xml version='1.0' encoding='ISO-8859-1'?>\r\n"sv,
                                      "<?xml version='1.0' encoding='US-ASCII'?>"sv,
                                      "<?xml version='1.0' encoding='UTF-16'?>"sv,
                                      "<?xml version='1.0' encoding='utf-8' standalone='no' ?>"sv,
                                      "<?xml version='1.0' standalone='yes'?>"sv,
                                      "<?xml version='1.1'?>"sv,
                                      "<?xml version='1.0' encoding='x'?>"sv,
                                      "<?xml encoding='UTF-8'?>"sv,
                                      "<?xml version='1.0' standalone='maybe'?>"sv,
                                      "<?xml  version\n=\t'1.0'?>"sv,
                                      "<?xml version='1.0'encoding='UTF-8'?>"sv,
                                      "<?xml version='1.0' encoding='UTF-8'>"sv,
                                      "<?xml?>"sv,
                                      "<?xml version=1.0?>"sv,
                                      " <?xml version='1.0'?>"sv,
                                      "<?xml version='1.0' standalone='yes' encoding='UTF-8'?>"sv,
                                      "<?xml version='1.0' encoding='UTF-8' x='y'?>"sv,
                                      "<?xml version='1.0' encoding='8'?>"sv,
                                      "<?xml-a?>"sv};

/// A file cut where tags, comments and texts meet.
std::vector<std::string_view> Cut(std::string_view file) {
  std::vector<std::string_view> pieces;
  while (!file.empty()) {
    size_t end = file[0] == '<' ? file.find('>') : file.find('<');
    if (end != std::string_view::npos && file[end] == '>') ++end;
    pieces.push_back(file.substr(0, end));
    file.remove_prefix(pieces.back().size());
  }
  return pieces;
}

std::string Joined(const std::vector<std::string_view>& pieces) {
  std::string file;
  for (const std::string_view piece : pieces) file += piece;
  return file;
}

}  // namespace

std::string XmlMutator::Mutated(std::string_view given) {
  using Mutation = void (XmlMutator::*)(std::string&);
  // Some are done more often than others.
  static constexpr std::array<Mutation, 16> kMutations = {&XmlMutator::MoveTags,
                                                          &XmlMutator::MoveTags,
                                                          &XmlMutator::MoveTags,
                                                          &XmlMutator::PutIn,
                                                          &XmlMutator::PutIn,
                                                          &XmlMutator::PutIn,
                                                          &XmlMutator::PutIn,
                                                          &XmlMutator::ChangeTag,
                                                          &XmlMutator::ChangeTag,
                                                          &XmlMutator::ChangeTag,
                                                          &XmlMutator::ChangeByte,
                                                          &XmlMutator::Deepen,
                                                          &XmlMutator::EndLinesOtherwise,
                                                          &XmlMutator::Lengthen,
                                                          &XmlMutator::DeclareOtherwise,
                                                          &XmlMutator::Encode};
  std::string file(given);
  for (size_t times = 1 + Below(3); times > 0; --times) (this->*OneOf(kMutations))(file);
  return file;
}

void XmlMutator::MoveTags(std::string& file) {
  std::vector<std::string_view> pieces = Cut(file);
  if (pieces.empty()) return;
  const size_t one = Below(pieces.size());
  const size_t other = Below(pieces.size());
  const auto [first, last] = std::minmax(one, other);
  const auto begin = pieces.begin() + static_cast<std::ptrdiff_t>(first);
  const auto end = pieces.begin() + static_cast<std::ptrdiff_t>(last);
  switch (Below(5)) {
    case 0:
      std::swap(pieces[one], pieces[other]);
      break;
    case 1:
      pieces.erase(pieces.begin() + static_cast<std::ptrdiff_t>(one));
      break;
    case 2:
      pieces.erase(begin, end);
      break;
    case 3: {
      const std::vector<std::string_view> again(begin, end);
      if (again.size() < 200) pieces.insert(end, again.begin(), again.end());
      break;
    }
    default: {
      const std::string_view again = pieces[one];
      pieces.insert(pieces.begin() + static_cast<std::ptrdiff_t>(other), again);
    }
  }
  file = Joined(pieces);
}

// Between tags and texts, or anywhere.
void XmlMutator::PutIn(std::string& file) {
  size_t at = Below(file.size() + 1);
  if (Below(3) > 0) {
    const size_t bracket = file.find_first_of("<>", at);
    if (bracket != std::string::npos) at = bracket + (file[bracket] == '>' ? 1 : 0);
  }
  file.insert(at, OneOf(kSnippets));
}

void XmlMutator::ChangeTag(std::string& file) {
  size_t tag = file.find('<', Below(file.size() + 1));
  // The root's more often than others, since only it may have attributes.
  if (Below(2) == 0) {
    tag = 0;
    do {
      tag = file.find('<', tag);
    } while (tag != std::string::npos && tag + 1 < file.size() && (file[tag + 1] == '?' || file[tag + 1] == '!') &&
             ++tag);
  }
  if (tag == std::string::npos) return;
  size_t end = file.find_first_of("<>", tag + 1);
  if (end == std::string::npos) end = file.size();
  const size_t name = std::min(end, file.find_first_of(" \t\r\n/>", tag + 2));
  const std::array places = {tag + 1, name, end, tag + 1 + Below(end - tag)};
  file.insert(OneOf(places), OneOf(kInTags));
}

void XmlMutator::ChangeByte(std::string& file) {
  if (!file.empty()) file[Below(file.size())] = static_cast<char>(Below(256));
}

// About as deep as is allowed.
void XmlMutator::Deepen(std::string& file) {
  const size_t at = std::min(file.size(), file.find('<', Below(file.size() + 1)));
  const size_t times = Below(2) == 0 ? Below(20) : 240 + Below(20);
  std::string in;
  std::string out;
  for (size_t i = 0; i < times; ++i) {
    in += "<d>";
    out += "</d>";
  }
  file.insert(at, in + out);
}

// A long name, value, text, comment or gap.
void XmlMutator::Lengthen(std::string& file) {
  static constexpr std::array kFills = {" "sv, "x"sv, "\n"sv, "\xC3\xA9"sv, "]"sv, "-"sv, "\r\n"sv, "&amp;"sv};
  const std::string_view fill = OneOf(kFills);
  static constexpr std::array kTimes = {7, 8, 15, 16, 30, 62, 63, 64, 65, 130, 260, 600};
  std::string filled;
  for (int i = 0; i < OneOf(kTimes); ++i) filled += fill;
  file.insert(Below(file.size() + 1), filled);
}

void XmlMutator::EndLinesOtherwise(std::string& file) {
  const std::string_view ending = Below(2) == 0 ? "\r\n"sv : "\r"sv;
  std::string changed;
  for (const char c : file) {
    if (c == '\n') {
      changed += ending;
    } else if (c != '\r') {
      changed += c;
    }
  }
  file = std::move(changed);
}

void XmlMutator::DeclareOtherwise(std::string& file) {
  if (file.starts_with("<?xml")) file.erase(0, file.find("?>") + 2);
  file.insert(0, OneOf(kDeclarations));
  if (Below(4) == 0) file.insert(0, "\xEF\xBB\xBF");
}

// What is in UTF-8 or single bytes, in UTF-16; each byte is taken for a character.
void XmlMutator::Encode(std::string& file) {
  if (file.find('\0') != std::string::npos) return;
  const bool little = Below(2) == 0;
  std::string wide = Below(4) == 0 ? "" : little ? "\xFF\xFE" : "\xFE\xFF";
  for (const char c : file) {
    wide += little ? c : '\0';
    wide += little ? '\0' : c;
  }
  file = std::move(wide);
}

}  // namespace zevo::fuzz
