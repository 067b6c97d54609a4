// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_SCHEMADIAGNOSIS_H_
#define ZEVO_PLATFORM_SCHEMADIAGNOSIS_H_

#include <zevo/FilePlace.h>
#include <zevo/TextHash.h>
#include <zevo/platform/ContentModel.h>
#include <zevo/platform/KeyedHash.h>
#include <zevo/platform/Parser.h>
#include <zevo/platform/SchemaTables.h>
#include <zevo/platform/XmlProblem.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace zevo {

class PulledParse;
class RepeatedInput;

/// The elements by which violations are told: the records of a file, each with the child that tells it apart.
struct RecordElement {
  std::string_view name;
  std::string_view key;               // empty where there is one such record
  std::optional<size_t> parent = {};  // the record that such records stand in, where they stand in one
};

/// One thing in a file that the schema does not allow.
struct SchemaViolation {
  int32_t number = 0;                 // libxml2's
  std::optional<size_t> record = {};  // the innermost around the element, among those that are told apart
  std::string key = {};               // of that record
  std::string path = {};              // of the element: from the record, or from the root where it is in none
  FilePlace place = {};
  std::string value = {};
  std::string allowed = {};
};

/// Goes through a file that is not valid and tells everything that the schema does not allow, each thing once. Where
/// children are missing, misplaced or unknown it goes on at the next that fits; what it passes over is not judged. What
/// only follows from something told before is left out.
///
/// Of the keys of a schema it keeps 16 bytes each in a table, which takes 48 bytes in all, and of a reference that
/// stands in the file before its key may come all that is told of it.
class SchemaDiagnosis final : private ParserHandler {
 public:
  /// Takes violations in their order and says whether to go on.
  using Sink = std::function<bool(SchemaViolation&&)>;

  /// What it is given must outlive it.
  SchemaDiagnosis(const SchemaTables& tables, std::span<const RecordElement> records, Sink found);
  ~SchemaDiagnosis() override;

  struct Outcome {
    int64_t found = 0;
    bool ended = false;                      // by the sink
    std::optional<FilePlace> left_off = {};  // an element of which nothing can be said, nor of what follows
    std::optional<XmlProblem> problem = {};  // that stopped the parse
  };
  /// Judges a file. Raises what the sink raises, and error 7 without memory. For one file only.
  Outcome Run(const std::string& file);
  /// The same of what is read from where it stands, and may be read again.
  Outcome Run(RepeatedInput& input);

  // The same step by step, for who reads the file beside it: Begin, then Feed until it is false, then Result.

  /// Opens the file.
  void Begin(const std::string& file);
  /// Begins with what stands where it is read next.
  void Begin(RepeatedInput& input);
  /// Judges the next piece of the file. False when there is no more to come.
  bool Feed();
  /// See PulledParse.
  uint64_t Pieces() const;
  /// Complete when Feed gives false.
  const Outcome& Result() const { return outcome_; }

 private:
  using Child = ContentModel::Child;
  struct Enough {};

  // How far the elements that are open lead along a path of an identity: its selector, or one of its fields.
  struct Trail {
    size_t scope;
    size_t constraint;
    std::optional<size_t> field;
    size_t node;   // of a field
    size_t steps;  // that were gone
  };
  // An element whose fields make a key or a reference.
  struct KeyNode {
    size_t scope;
    size_t constraint;
    std::vector<std::optional<std::string>> values;
    std::string text;
    bool judged = true;
  };
  struct DigestHash {
    size_t operator()(const Digest& digest) const noexcept { return static_cast<size_t>(digest[0]); }
  };
  struct Held {
    SchemaViolation violation;
    uint64_t record;  // whose key is not known yet; 0 where it is
  };
  struct OpenReference {
    Digest digest;
    Held told;
  };
  struct KeyTable {
    std::unordered_set<Digest, DigestHash> keys;
    bool complete = true;  // not where keys were passed over
    std::vector<OpenReference> open;
  };
  // An element with identities.
  struct Scope {
    const ElementDeclaration* declaration;
    size_t frame;
    std::vector<KeyTable> tables;
  };
  struct Record {
    size_t frame;
    size_t kind;
    uint64_t number;
    std::string key = {};
    bool key_known = false;
  };
  // The children of an element that have a name that the schema does not have there.
  struct Strange {
    uint32_t count = 0;
    bool foreign = false;             // the schema has it there in another namespace
    std::optional<Child> meant = {};  // the child that may be meant

    uint32_t Ordinal() const { return count > 1 ? count : 0; }
  };
  // An element that is open and judged.
  struct Frame {
    const ElementType* type;
    const ElementDeclaration* declaration;  // null for one of which the schema says nothing
    std::string_view name;
    uint32_t ordinal;  // 0 where the path needs none
    FilePlace place;
    ContentModel::State state = ContentModel::kStart;
    std::vector<uint32_t> counts = {};  // of children, by number
    TextMap<Strange> strange = {};      // by name
    std::vector<Child> told_missing = {};
    std::vector<Child> told_stray = {};
    std::vector<std::string> unknown = {};  // children since the last that fitted
    bool told_text = false;
    bool told_content = false;  // elements where there must be none
    int64_t told_before = 0;    // violations before it
    std::vector<Trail> trails = {};
    size_t nodes = 0;  // key nodes that it is
    bool scope = false;
    bool record = false;
    bool waits = false;
  };
  // A text whose place is not certain before the next sibling: something may lack in front of it, or it is misplaced.
  struct Waiting {
    Child child;
    ContentModel::Gap gap;
    Frame frame;
    std::string text;
    size_t held_from;  // what was found in it
  };
  struct Binding {
    std::string prefix;
    std::string uri;
    size_t depth;
  };
  enum class Space : uint8_t { kNone, kOwn, kOther };

  void StartElement(const ParsedName& name, std::span<const ParsedAttribute> attributes) override;
  void EndElement(const ParsedName& name) override;
  void Characters(std::string_view text) override;

  Outcome ToTheEnd();

  void Bind(std::span<const ParsedAttribute> attributes);
  std::string_view UriOf(const char* prefix) const;
  Space SpaceOf(const ParsedName& name) const;

  void StartRoot(const ParsedName& name, std::span<const ParsedAttribute> attributes, const FilePlace& place);
  void StartChild(const ParsedName& name, std::span<const ParsedAttribute> attributes, const FilePlace& place);
  void StartKnown(Child child, std::span<const ParsedAttribute> attributes, const FilePlace& place);
  void StartUnknown(const ParsedName& name, const FilePlace& place);
  void StartAnywhere(const ParsedName& name, std::span<const ParsedAttribute> attributes, const FilePlace& place);
  void Open(Frame frame, std::span<const ParsedAttribute> attributes);
  void OpenRecord();
  void JudgeAttributes(std::span<const ParsedAttribute> attributes);
  void Skip() { skipped_ = 1; }

  void BreakOff();
  void EndFrame();
  void EndContent();
  void EndStrayText();
  void JudgeText(Frame& frame, const std::string& text);
  void JudgeFixed(const Frame& frame);
  void Settle(std::optional<Child> next);
  void SettleAsStray();
  void SettleInPlace(bool whole);
  void TellStray(Child child, uint32_t ordinal, const FilePlace& place);
  void TellMissing(const std::vector<ContentModel::Alternatives>& lacking, const FilePlace& place);
  std::vector<bool> ToldOtherwise(const std::vector<ContentModel::Alternatives>& lacking);
  Strange& CountStrange(std::string_view name);
  void TellUnknown(int32_t number, std::string_view name, const Strange& strange, const FilePlace& place,
                   std::string allowed, std::string value = {});

  void OpenScope(Frame& frame);
  void FollowTrails(const Frame& parent, Frame& frame);
  void Reach(const Trail& trail, Frame& frame);
  void Capture(const Frame& frame, const std::string& text, bool valid);
  void JudgeKey(const KeyNode& node, const Frame& field);
  void CloseNodes(const Frame& frame);
  void CloseScope();
  bool MayStillGrow(const Scope& scope, const IdentityConstraint& key) const;
  void LoseKeys(std::optional<std::string_view> child);

  static const IdentityConstraint::Path& PathOf(const Scope& scope, const Trail& trail);
  std::string NamesOf(const std::vector<Child>& children) const;
  std::string PathTo(const std::string& step, std::optional<size_t> record) const;
  Held Make(int32_t number, const std::string& step, const FilePlace& place, std::string value = {},
            std::string allowed = {}) const;
  Held MakeOfOpen(int32_t number, std::string value, std::string allowed);
  void Tell(Held held);
  void KnowKey(Record& record, std::string_view key);
  void Release(bool all);

  const SchemaTables& tables_;
  std::span<const RecordElement> records_of_schema_;
  Sink found_;
  Outcome outcome_;
  bool ended_ = false;
  std::unique_ptr<PulledParse> parse_;
  ElementType anything_;
  std::set<std::string, std::less<>> names_;  // of elements that the schema does not declare

  size_t depth_ = 0;
  size_t skipped_ = 0;  // elements open in a part that is passed over, itself included
  std::vector<Binding> bindings_;
  std::vector<Frame> frames_;
  std::string text_;  // of the text element that is open, or stray text in another
  std::optional<Waiting> waiting_;
  std::vector<Record> records_;
  uint64_t records_seen_ = 0;
  std::vector<KeyNode> nodes_;
  std::vector<Scope> scopes_;
  std::deque<Held> held_;
  int64_t told_ = 0;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_SCHEMADIAGNOSIS_H_
