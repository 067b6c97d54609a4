// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_DAL_ENTITYSCANNER_H_
#define ZEVO_DAL_ENTITYSCANNER_H_

#include <zevo/FilePlace.h>
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
#include <vector>

namespace zevo {

/// Goes through an audit file once and gives its entities one after the other, each with all that the file has of it.
/// Sections and journals come first, cut off at the first entry inside. The file is read no further than the entity
/// that is asked for takes.
class EntityScanner final : private ParserHandler {
 public:
  /// Opens the file. Raises a run-time error when it cannot be read.
  explicit EntityScanner(const std::string& fileName);
  EntityScanner(const EntityScanner&) = delete;
  EntityScanner& operator=(const EntityScanner&) = delete;
  ~EntityScanner() override;

  /// Reads as far as it takes to know what file this is. Raises message 602 for another root than an audit file's, 601
  /// for another version, and the parser's number and reason with the source `source` where the file breaks off before
  /// that is known.
  void Open(std::string_view source);

  /// Goes on to the next entity; null after the last. Raises the same as Open, once the entities before are through.
  ScannedEntity* Next(std::string_view source);
  /// What Next gave last.
  const ScannedEntity* Current() const { return current_.get(); }
  /// What stands behind the last entity and belongs to none.
  const std::vector<Problem>& ProblemsAtTheEnd() const { return between_; }

  uint64_t BytesRead() const { return parse_.BytesRead(); }

 private:
  struct Name : ScannedName {
    std::string own_text;
    std::optional<EntityKind> kind;
  };
  struct OpenElement {
    const Name* name;
    std::optional<size_t> problem;  // among those between entities, of which it is one
  };

  void StartElement(const ParsedName& parsed, std::span<const ParsedAttribute> attributes) override;
  void EndElement(const ParsedName& parsed) override;
  void Characters(std::string_view text) override;

  const Name& NameOf(const ParsedName& parsed);
  const Name& AddName(const ParsedName& parsed);
  void StartRoot(const ParsedName& name, std::span<const ParsedAttribute> attributes, const FilePlace& place);
  void BeginEntity(const Name& name, const FilePlace& place);
  void FinishEntity();
  void CheckVersion();
  void NoteAttributes(std::span<const ParsedAttribute> attributes, const FilePlace& place);
  std::optional<size_t> NoteBetween(std::string path, const FilePlace& place);
  void AddTextBetween(size_t problem, std::string_view text);
  std::string OpenPath() const;

  void Feed();
  void RaiseWhatStoppedIt(std::string_view source) const;

  PulledParse parse_;
  bool at_end_ = false;
  std::exception_ptr thrown_;  // by the handler
  std::deque<Name> names_;
  std::vector<const Name*> by_number_;  // in the parse; null for those of attributes
  std::vector<OpenElement> open_;
  std::unique_ptr<ScannedEntity> entity_;  // that is being read; null between entities
  size_t entity_depth_ = 0;                // elements around it
  std::string journal_id_;
  bool version_known_ = false;
  FilePlace root_place_;
  std::vector<Problem> between_;
  size_t between_size_ = 0;

  std::deque<std::unique_ptr<ScannedEntity>> finished_;
  std::vector<std::unique_ptr<ScannedEntity>> free_;
  std::unique_ptr<ScannedEntity> current_;
};

}  // namespace zevo

#endif  // ZEVO_DAL_ENTITYSCANNER_H_
