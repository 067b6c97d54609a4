// SPDX-License-Identifier: Apache-2.0
// Any bytes as an audit file, scanned and made a tree by libxml2: the scan gives every element of the tree with its
// name, depth, text and place, in entities as the tree has them, and tells whatever stands between those.

#include <libxml/parser.h>
#include <libxml/tree.h>
#include <zevo/Error.h>
#include <zevo/dal/EntityScanner.h>
#include <zevo/platform/File.h>
#include <zevo/platform/Text.h>
#include <zevo/platform/TextDecoder.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "fuzz/Expect.h"
#include "fuzz/FileInMemory.h"

namespace zevo {
namespace {

std::string_view View(const xmlChar* text) { return text == nullptr ? "" : reinterpret_cast<const char*>(text); }

struct Element {
  std::string name;
  int depth = 0;
  std::string text;
  FilePlace place;

  friend bool operator==(const Element&, const Element&) = default;
};

/// Where elements, attributes and texts are that no record has; attributes come before what is in their element.
struct Stray {
  std::string path;
  FilePlace place;
  std::string text;

  friend bool operator==(const Stray&, const Stray&) = default;
};

struct Entity {
  EntityKind kind{};
  std::vector<Element> elements;
  std::vector<Stray> between;
};

struct Contents {
  std::vector<Entity> entities;
  std::vector<Stray> behind;
};

/// The text of a file in UTF-8, and where it begins.
struct Decoded {
  explicit Decoded(const std::string& path) {
    InputFile file(path);
    TextDecoder decoder(file);
    std::array<char, 1024> piece;
    while (const size_t length = decoder.Read(piece.data(), piece.size())) text.append(piece.data(), length);
    start = decoder.Start();
    width = decoder.Width();
  }

  std::string text;
  int64_t start = 0;
  CharacterWidth width{};
};

/// Of every start tag, found in the text of a well-formed file, character by character.
std::vector<FilePlace> PlacesOfTags(const Decoded& file) {
  std::vector<FilePlace> places;
  FilePlace at{1, 1, file.start};
  std::string_view ends_with;  // what is open: a comment, a section, an instruction; else empty
  char quote = '\0';
  bool in_tag = false;
  std::string_view rest = file.text;
  size_t skipped = 0;  // characters that what is open begins with
  while (!rest.empty()) {
    if (skipped > 0) {
      --skipped;
    } else if (!ends_with.empty()) {
      if (rest.starts_with(ends_with)) {
        skipped = ends_with.size() - 1;
        ends_with = {};
      }
    } else if (in_tag) {
      if (quote != '\0') {
        if (rest[0] == quote) quote = '\0';
      } else if (rest[0] == '"' || rest[0] == '\'') {
        quote = rest[0];
      } else if (rest[0] == '>') {
        in_tag = false;
      }
    } else if (rest.starts_with("<!--")) {
      ends_with = "-->";
      skipped = 3;
    } else if (rest.starts_with("<![CDATA[")) {
      ends_with = "]]>";
      skipped = 8;
    } else if (rest.starts_with("<?")) {
      ends_with = "?>";
      skipped = 1;
    } else if (rest[0] == '<') {
      in_tag = true;
      if (!rest.starts_with("</")) places.push_back(at);
    }
    const auto lead = static_cast<unsigned char>(rest[0]);
    const size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    switch (file.width) {
      case CharacterWidth::kAsUtf8:
        at.offset += static_cast<int64_t>(length);
        break;
      case CharacterWidth::kOne:
        ++at.offset;
        break;
      case CharacterWidth::kUtf16:
        at.offset += length == 4 ? 4 : 2;
        break;
    }
    ++at.column;
    if (rest[0] == '\n') {
      ++at.line;
      at.column = 1;
    }
    rest.remove_prefix(length);
  }
  return places;
}

/// Goes through the tree of a file and finds what a scan must give.
class TreeWalk {
 public:
  explicit TreeWalk(const Decoded& file) : places_(PlacesOfTags(file)) {}

  Contents Of(const xmlDoc& document) {
    Visit(*xmlDocGetRootElement(&document), 0, "");
    fuzz::Expect(next_place_ == places_.size(), "more start tags than elements");
    contents_.behind = std::move(between_);
    return std::move(contents_);
  }

 private:
  /// An element that has begun.
  struct Open {
    const xmlNode& node;
    std::string path;
    FilePlace place;
    bool has_children;
    size_t entity;                  // how many had begun when it began, itself included
    std::optional<size_t> element;  // of that entity
    std::optional<size_t> stray;    // of those since an entity began, itself or its text
    size_t stray_entity = 0;
    bool has_text = false;
  };

  static std::optional<EntityKind> KindOf(const xmlNode& node) {
    for (const EntityKind kind : EntityKinds()) {
      if (NameOf(kind) == View(node.name)) return kind;
    }
    return std::nullopt;
  }

  static bool HasElements(const xmlNode& node) {
    for (const xmlNode* child = node.children; child != nullptr; child = child->next) {
      if (child->type == XML_ELEMENT_NODE) return true;
    }
    return false;
  }

  Entity& Current() { return contents_.entities.back(); }

  void Visit(const xmlNode& node, int depth, const std::string& above) {
    fuzz::Expect(next_place_ < places_.size(), "more elements than start tags");
    const FilePlace place = places_[next_place_++];
    const std::optional<EntityKind> kind = KindOf(node);
    const bool is_entry = in_entity_ && kind && HoldsEntries(Current().kind) && ParentOf(*kind) == Current().kind;
    const bool begins_entity = depth > 0 && kind && (is_entry || !in_entity_);
    if (begins_entity) {
      contents_.entities.push_back({*kind, {}, std::exchange(between_, {})});
      in_entity_ = true;
      entity_depth_ = depth;
    }
    Open open{node, above + "/" + std::string(View(node.name)), place, HasElements(node), contents_.entities.size(), {},
              {}};
    if (in_entity_) {
      open.element = Current().elements.size();
      Current().elements.push_back({std::string(View(node.name)), depth - entity_depth_, "", place});
    } else if (depth > 0) {
      const bool is_container =
          depth == 1 && (View(node.name) == "MasterFiles" || View(node.name) == "SourceDocuments");
      if (!is_container) AddStray(open, open.path);
      AddAttributes(open);
    }
    std::string text;
    for (const xmlNode* child = node.children; child != nullptr; child = child->next) {
      if (child->type == XML_TEXT_NODE || child->type == XML_CDATA_SECTION_NODE) {
        text += View(child->content);
      } else if (child->type == XML_ELEMENT_NODE) {
        EndText(open, std::exchange(text, ""));
        Visit(*child, depth + 1, open.path);
      }
    }
    EndText(open, text);
    if (begins_entity && open.entity == contents_.entities.size()) in_entity_ = false;
  }

  void AddStray(Open& open, const std::string& path) {
    open.stray = between_.size();
    open.stray_entity = contents_.entities.size();
    between_.push_back({path, open.place, ""});
  }

  void AddAttributes(const Open& open) {
    for (const xmlAttr* attribute = open.node.properties; attribute != nullptr; attribute = attribute->next) {
      const std::unique_ptr<xmlChar, void (*)(void*)> value(xmlNodeListGetString(open.node.doc, attribute->children, 1),
                                                            xmlFree);
      std::string path = open.path + "/@";
      if (attribute->ns != nullptr) path.append(View(attribute->ns->prefix)).append(":");
      between_.push_back({path.append(View(attribute->name)), open.place, std::string(View(value.get()))});
    }
  }

  // A text between two tags. Nothing but white space around elements is none.
  void EndText(Open& open, const std::string& text) {
    const bool is_blank = TrimWhiteSpace(text).empty();
    if (text.empty() || (open.has_children && is_blank)) return;
    if (in_entity_) {
      if (!std::exchange(open.has_text, true)) Current().elements[*open.element].text = text;
      return;
    }
    // What stood before an entity went with it.
    const bool is_known = open.stray && open.stray_entity == contents_.entities.size();
    if (!is_known && is_blank) return;
    if (!is_known) AddStray(open, open.path + "/text()");
    between_[*open.stray].text += text;
  }

  std::vector<FilePlace> places_;
  size_t next_place_ = 0;
  Contents contents_;
  std::vector<Stray> between_;
  bool in_entity_ = false;
  int entity_depth_ = 0;
};

/// What a scan gives; nothing when it refuses the file, or when it tells another version.
std::optional<Contents> ScannedContents(const std::string& path) {
  const auto strays = [](const std::vector<Problem>& problems) {
    std::vector<Stray> strays;
    for (const Problem& problem : problems) {
      if (problem.fault == Fault::kUnknownElement && problem.path.starts_with("/")) {
        strays.push_back({problem.path, problem.place, problem.text});
      }
    }
    return strays;
  };
  Contents contents;
  try {
    EntityScanner scanner(path);
    scanner.Open("");
    while (const ScannedEntity* entity = scanner.Next("")) {
      Entity& found = contents.entities.emplace_back();
      found.kind = entity->Kind();
      found.between = strays(entity->Problems());
      for (const ScannedElement& element : entity->Elements()) {
        found.elements.push_back({std::string(element.name), element.depth, std::string(element.text), element.place});
      }
    }
    contents.behind = strays(scanner.ProblemsAtTheEnd());
  } catch (const Error&) {
    return std::nullopt;
  }
  return contents;
}

void ExpectSame(std::vector<Stray> found, std::vector<Stray> expected) {
  for (size_t i = 0; i < std::max(found.size(), expected.size()); ++i) {
    fuzz::Expect(i < found.size(), i < expected.size() ? "not told: " + expected[i].path : "");
    fuzz::Expect(i < expected.size(), "told without cause: " + found[i].path);
    fuzz::Expect(found[i] == expected[i], "told otherwise: " + found[i].path + " \"" + found[i].text + "\", not " +
                                              expected[i].path + " \"" + expected[i].text + "\"");
  }
}

void ExpectSame(const Entity& found, const Entity& expected) {
  fuzz::Expect(found.kind == expected.kind, "an entity of another kind");
  ExpectSame(found.between, expected.between);
  for (size_t i = 0; i < std::max(found.elements.size(), expected.elements.size()); ++i) {
    fuzz::Expect(i < found.elements.size(), "an element is missing");
    fuzz::Expect(i < expected.elements.size(), "an element too many");
    const Element& one = found.elements[i];
    const Element& other = expected.elements[i];
    fuzz::Expect(one.name == other.name && one.depth == other.depth, "another element: " + one.name);
    fuzz::Expect(one.text == other.text,
                 "the text of " + one.name + ": \"" + one.text + "\" for \"" + other.text + "\"");
    fuzz::Expect(one.place == other.place, "the place of " + one.name);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static fuzz::FileInMemory given;
  given.Replace({reinterpret_cast<const char*>(data), size});
  const std::optional<Contents> found = ScannedContents(given.Path());
  if (!found) return 0;
  const Decoded file(given.Path());
  const std::unique_ptr<xmlParserCtxt, void (*)(xmlParserCtxt*)> parser(xmlNewParserCtxt(), xmlFreeParserCtxt);
  const std::unique_ptr<xmlDoc, void (*)(xmlDoc*)> document(
      xmlCtxtReadMemory(parser.get(), file.text.data(), static_cast<int>(file.text.size()), nullptr, "UTF-8",
                        XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_IGNORE_ENC),
      xmlFreeDoc);
  fuzz::Expect(document != nullptr, "a file that is not well-formed was scanned");
  const Contents expected = TreeWalk(file).Of(*document);
  fuzz::Expect(found->entities.size() == expected.entities.size(), "another number of entities");
  for (size_t i = 0; i < found->entities.size(); ++i) ExpectSame(found->entities[i], expected.entities[i]);
  ExpectSame(found->behind, expected.behind);
  return 0;
}

}  // namespace zevo
