#include <zevo/dal/SAXDALReader.h>

#include <zevo/Error.h>
#include <zevo/dal/LoadDocument.h>
#include <zevo/model/LetterCase.h>
#include <zevo/platform/Selection.h>

#include <algorithm>
#include <array>

namespace zevo {
namespace {

/// An entity, and the one inside it that ends it early, if any.
struct EntityKind {
  std::string_view name;
  std::string_view ended_by;
};

constexpr auto kEntityKinds = std::to_array<EntityKind>({
    {"Header", {}},
    {"Invoice", {}},
    {"Transaction", {}},
    {"GeneralLedger", {}},
    {"Customer", {}},
    {"Supplier", {}},
    {"Product", {}},
    {"TaxTable", {}},
    {"GeneralLedgerEntries", "Journal"},
    {"Journal", "Transaction"},
    {"SalesInvoices", "Invoice"},
});

}  // namespace

SAXDALReader::SAXDALReader() : entity_(NewDocument()) {}
SAXDALReader::~SAXDALReader() = default;

void SAXDALReader::ReadFile() {
  if (!IsOpen() || reading_) throw MakeRunTimeError(RunTimeError::kInvalidCall);
  struct Reading {
    bool& flag;
    ~Reading() { flag = false; }
  } reading{reading_ = true};
  current_ = kNoEntity;
  kinds_.clear();
  builder_.emplace(*entity_);
  parser_.emplace(file_name_, "MSXML2.SAXXMLReader.ParseURL");
  parser_->Parse(*this);
  if (FinishedReading) FinishedReading();
}

SAXDALReader::Kind SAXDALReader::KindOf(const ParsedName& name) {
  if (name.number >= kinds_.size()) kinds_.resize(name.number + 1, kUnknown);
  Kind& kind = kinds_[name.number];
  if (kind == kUnknown) {
    const auto found = std::ranges::find_if(
        kEntityKinds, [&](const EntityKind& entity) { return EqualIgnoringCase(entity.name, name.local); });
    kind = found == kEntityKinds.end() ? kNoEntity : static_cast<Kind>(found - kEntityKinds.begin());
  }
  return kind;
}

void SAXDALReader::StartElement(const ParsedName& name, std::span<const ParsedAttribute>) {
  if (abort_requested_) throw LibraryError(Message::kReadingAborted, "SAXDALReader.StartElement");
  if (current_ == kNoEntity) {
    const Kind kind = KindOf(name);
    if (kind == kNoEntity) return;
    BeginEntity(kind, name.local);
  } else if (const std::string_view endedBy = kEntityKinds[current_].ended_by; !endedBy.empty()) {
    const Kind kind = KindOf(name);
    if (kind != kNoEntity && kEntityKinds[kind].name == endedBy) {
      EndInnermost(name);
      EndEntity();
      BeginEntity(kind, name.local);
    }
  }
  // Prefixes and attributes stay behind: the file has its data in elements.
  builder_->StartElement({name.local, nullptr, name.number}, {});
  ++depth_;
}

void SAXDALReader::EndElement(const ParsedName& name) {
  if (current_ == kNoEntity) return;
  EndInnermost(name);
  if (name.local == current_pointer_) EndEntity();
}

void SAXDALReader::Characters(std::string_view text) {
  if (current_ != kNoEntity) builder_->Characters(text);
}

void SAXDALReader::BeginEntity(Kind kind, const char* localName) {
  builder_->Clear();
  if (cursors_) cursors_->Clear();
  depth_ = 0;
  current_ = kind;
  current_name_ = localName;
  current_pointer_ = localName;
}

void SAXDALReader::EndInnermost(const ParsedName& name) {
  builder_->EndElement(name);
  --depth_;
}

// An entity that ends while an element inside it is open would be no XML by itself.
void SAXDALReader::EndEntity() {
  current_ = kNoEntity;
  if (depth_ > 0) throw LibraryError(Message::kEntityNotXml, "SAXDALReader.EndElement");
  if (ReadEntity) ReadEntity(current_name_, entity_->Root());
}

Element SAXDALReader::GetElement(std::string_view name, Element parent, std::string_view xpathQuery) {
  if (!parent) return entity_->Root();
  return parent.Name() == name ? parent : SelectFirst(parent, name, xpathQuery);
}

Element SAXDALReader::GetFirstElement(std::string_view name, Element parent) {
  if (!parent) return GetElement(name, {}, {});
  const Element first = SelectFirst(parent, name, {});
  if (cursors_) cursors_->Begin(name, first);
  return GetNextElement(name);
}

Element SAXDALReader::GetNextElement(std::string_view name) {
  return cursors_ && cursors_->Has(name) ? cursors_->Next(name) : entity_->Root();
}

}  // namespace zevo
