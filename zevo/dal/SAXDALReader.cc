// SPDX-License-Identifier: Apache-2.0
#include <zevo/dal/SAXDALReader.h>

#include <zevo/Error.h>
#include <zevo/dal/LoadDocument.h>
#include <zevo/platform/Selection.h>

namespace zevo {

SAXDALReader::SAXDALReader() : entity_(NewDocument()) {}
SAXDALReader::~SAXDALReader() = default;

void SAXDALReader::ReadFile() {
  if (!IsOpen()) throw MakeRunTimeError(RunTimeError::kObjectNotSet);
  if (reading_) throw MakeRunTimeError(RunTimeError::kInvalidCall);
  struct Reading {
    bool& flag;
    ~Reading() { flag = false; }
  } reading{reading_ = true};
  in_entity_ = takes_leaves_ = false;
  kinds_.clear();
  builder_.emplace(*entity_, Indentation::kLeftOut);
  parser_.emplace(file_name_);
  Raise(parser_->Parse(*this), "MSXML2.SAXXMLReader.ParseURL");
  if (FinishedReading) FinishedReading();
}

std::optional<EntityKind> SAXDALReader::KindOf(const ParsedName& name) {
  if (name.number >= kinds_.size()) kinds_.resize(name.number + 1);
  NamedKind& known = kinds_[name.number];
  if (known.name == Name::kNotLookedUp) {
    const std::optional<EntityKind> kind = EntityKindOf(name.local);
    known = kind ? NamedKind{Name::kEntity, *kind} : NamedKind{Name::kOther};
  }
  return known.name == Name::kEntity ? std::optional(known.kind) : std::nullopt;
}

void SAXDALReader::StartElement(const ParsedName& name, std::span<const ParsedAttribute>) {
  if (abort_requested_) throw LibraryError(Message::kReadingAborted, "SAXDALReader.StartElement");
  if (!in_entity_) {
    const std::optional<EntityKind> kind = KindOf(name);
    if (!kind) return;
    BeginEntity(*kind, name.local);
  } else if (HoldsEntries(kind_)) {
    const std::optional<EntityKind> kind = KindOf(name);
    if (kind && ParentOf(*kind) == kind_) {
      EndInnermost(name);
      EndEntity();
      BeginEntity(*kind, name.local);
    }
  }
  // Prefixes and attributes are left out: the data is in elements and their texts.
  builder_->StartElement({name.local, nullptr, name.number}, {});
  ++depth_;
}

void SAXDALReader::EndElement(const ParsedName& name) {
  if (!in_entity_) return;
  EndInnermost(name);
  if (name.local == current_pointer_) EndEntity();
}

void SAXDALReader::Characters(std::string_view text) {
  if (in_entity_) builder_->Characters(text);
}

void SAXDALReader::Leaf(const ParsedName& name, std::string_view text) {
  if (!takes_leaves_ || abort_requested_ || name.local == current_pointer_) return ParserHandler::Leaf(name, text);
  builder_->Leaf({name.local, nullptr, name.number}, text);
}

void SAXDALReader::BeginEntity(EntityKind kind, const char* localName) {
  builder_->Clear();
  if (cursors_) cursors_->Clear();
  depth_ = 0;
  in_entity_ = true;
  takes_leaves_ = !HoldsEntries(kind);
  kind_ = kind;
  current_name_ = localName;
  current_pointer_ = localName;
}

void SAXDALReader::EndInnermost(const ParsedName& name) {
  builder_->EndElement(name);
  --depth_;
}

// An entity that ends while an element inside it is open is not well-formed by itself.
void SAXDALReader::EndEntity() {
  in_entity_ = takes_leaves_ = false;
  if (depth_ > 0) throw LibraryError(Message::kEntityNotXml, "SAXDALReader.EndElement");
  if (ReadEntity) ReadEntity(current_name_, entity_->Root());
}

Element SAXDALReader::GetElement(ElementName name, Element parent) {
  if (!parent) return entity_->Root();
  return parent.LocalNumber() == name.Number() ? parent : entity_->FirstChild(parent, name.Number());
}

Element SAXDALReader::GetElement(std::string_view name, Element parent, std::string_view xpathQuery) {
  if (!parent) return entity_->Root();
  return parent.Name() == name ? parent : SelectFirst(parent, name, xpathQuery);
}

Element SAXDALReader::GetFirstElement(ElementName name, Element parent) {
  if (!parent) return entity_->Root();
  const Element first = entity_->FirstChild(parent, name.Number());
  if (cursors_) cursors_->Begin(name.Number(), first);
  return GetNextElement(name);
}

Element SAXDALReader::GetNextElement(ElementName name) {
  return cursors_ && cursors_->Has(name.Number()) ? cursors_->Next(name.Number()) : entity_->Root();
}

}  // namespace zevo
