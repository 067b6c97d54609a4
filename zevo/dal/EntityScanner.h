// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_DAL_ENTITYSCANNER_H_
#define ZEVO_DAL_ENTITYSCANNER_H_

#include <zevo/Error.h>
#include <zevo/FilePlace.h>
#include <zevo/TextHash.h>
#include <zevo/dal/ScannedEntity.h>
#include <zevo/model/EntityKind.h>
#include <zevo/platform/Parser.h>
#include <zevo/platform/PulledParse.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <exception>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zevo {

class RepeatedInput;

/// Goes through an audit file once and gives its entities one after the other, each with all that the file has of it.
/// Sections and journals come first, cut off at the first entry inside. The file is read no further than the entity
/// that is asked for takes.
class EntityScanner final : private ParserHandler {
 public:
  /// Opens the file. Raises error 7 when there is no memory.
  explicit EntityScanner(const std::string& fileName);
  /// Reads what can be read again, from where it stands. The input must outlive this.
  explicit EntityScanner(RepeatedInput& input);
  EntityScanner(const EntityScanner&) = delete;
  EntityScanner& operator=(const EntityScanner&) = delete;
  ~EntityScanner() override;

  /// Reads as far as it takes to know what file this is. Raises message 602 for another root than an audit file's, 601
  /// for another version, and the parser's number and reason with the source `source` where the file cannot be read or
  /// breaks off before that is known.
  void Open(std::string_view source);

  /// Goes on to the next entity; null after the last. Raises the same as Open, once the entities before are through.
  ScannedEntity* Next(std::string_view source);
  /// What Next gave last.
  const ScannedEntity* Current() const { return current_.get(); }
  /// What stands behind the last entity and belongs to none.
  const std::vector<Problem>& ProblemsAtTheEnd() const { return between_; }

  uint64_t BytesRead() const { return parse_.BytesRead(); }
  /// See PulledParse.
  uint64_t Pieces() const { return parse_.Pieces(); }

  /// What a file that is not read is instead of an audit file of the version.
  struct Refused {
    bool another_version = false;
    std::string found;  ///< that version; or the name of the root, or its namespace
    FilePlace place;    ///< of the root
  };
  /// Nothing before messages 601 and 602.
  const std::optional<Refused>& RefusedAs() const { return refused_as_; }

 private:
  struct Name : ScannedName {
    std::string own_text;
    std::optional<EntityKind> kind;
    bool is_section = false;  // in the root, that is
  };
  /// An element around entities, or one that belongs to none.
  struct OpenElement {
    const Name* name;
    FilePlace place;
    bool has_children = false;
    std::optional<size_t> problem = {};  // of the element or of its text, among those between entities
  };
  /// A journal whose transactions are being read.
  struct OpenJournal {
    size_t depth;
    std::string id;
  };

  void StartElement(const ParsedName& parsed, std::span<const ParsedAttribute> attributes) override;
  void EndElement(const ParsedName& parsed) override;
  void Characters(std::string_view text) override;
  void Leaf(const ParsedName& parsed, std::string_view text) override;

  const Name& NameOf(const ParsedName& parsed);
  const Name& AddName(const ParsedName& parsed);
  void StartRoot(const ParsedName& name, std::span<const ParsedAttribute> attributes, const FilePlace& place);
  void StartBetween(const Name& name, std::span<const ParsedAttribute> attributes, const FilePlace& place);
  void BeginEntity(const Name& name, const FilePlace& place);
  void CutEntity();
  void FinishEntity();
  void CheckVersion();
  Error OtherRoot(std::string_view root);
  Error OtherVersion(std::string_view version);
  std::optional<size_t> NoteBetween(std::string_view step, const FilePlace& place);
  void EndTextBetween();
  bool IsPlaceOf(EntityKind kind) const;
  std::string OpenPath() const;

  void Feed();
  void RaiseWhatStoppedIt(std::string_view source) const;

  PulledParse parse_;
  bool at_end_ = false;
  std::exception_ptr thrown_;  // by the handler
  std::deque<Name> names_;
  std::unordered_map<std::string_view, uint16_t, TextHash> numbers_;  // of names without their prefixes
  ScannedNames by_number_;                 // each a Name, in the parse; null for those of attributes
  std::vector<OpenElement> open_;          // around the entity that is being read
  std::unique_ptr<ScannedEntity> entity_;  // null between entities
  std::vector<OpenJournal> journals_;
  // What the root is refused for. It is told by what follows: the parser gives the root also where its tag is broken.
  std::optional<Error> refusal_;
  std::optional<Refused> refused_as_;
  bool version_known_ = false;
  FilePlace root_place_;
  std::vector<Problem> between_;
  std::string text_between_;  // since the last tag
  size_t between_size_ = 0;

  std::deque<std::unique_ptr<ScannedEntity>> finished_;
  std::vector<std::unique_ptr<ScannedEntity>> free_;
  std::unique_ptr<ScannedEntity> current_;
};

}  // namespace zevo

#endif  // ZEVO_DAL_ENTITYSCANNER_H_
