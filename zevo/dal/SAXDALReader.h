// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_DAL_SAXDALREADER_H_
#define ZEVO_DAL_SAXDALREADER_H_

#include <zevo/dal/Cursors.h>
#include <zevo/dal/IDALReader.h>
#include <zevo/model/EntityKind.h>
#include <zevo/platform/Document.h>
#include <zevo/platform/DocumentBuilder.h>
#include <zevo/platform/Parser.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zevo {

/// The reader that goes through a file of any size once and holds one entity of it at a time: the header, a customer, a
/// transaction with its lines. Sections and journals are cut off at the first entry inside, which is an entity itself.
///
/// What the entity's mapper asks for is found whether it asks from the root of a file or from the entity: without a
/// parent, and for the next element where no walk has begun, the answer is the entity.
class SAXDALReader final : public IDALReader, private ParserHandler {
 public:
  SAXDALReader();
  ~SAXDALReader() override;

  /// An entity with the local name as the file has it. The element is valid until the next entity begins. What a
  /// handler throws ends the reading and comes out of ReadFile.
  std::function<void(const std::string& entityName, Element entity)> ReadEntity;
  /// The kind of the entity that was delivered last.
  EntityKind Kind() const { return kind_; }
  /// The end of a file that was read to its end.
  std::function<void()> FinishedReading;

  /// Once true, the next element raises message 501. The reader never makes it false again.
  bool AbortRequested() const { return abort_requested_; }
  void set_AbortRequested(bool value) { abort_requested_ = value; }
  /// How many bytes of the file the running or the last ReadFile has taken in.
  uint64_t BytesRead() const { return parser_ ? parser_->BytesRead() : 0; }

  bool IsOpen() const override { return cursors_.has_value(); }
  const std::string& AuditFileName() const override { return file_name_; }
  void set_AuditFileName(std::string_view value) override { file_name_ = value; }
  /// Does not touch the file yet.
  void OpenFile() override { cursors_.emplace(); }
  /// Reads the whole file; every event is raised inside. Raises message 401 for an entity that is no element by itself,
  /// 501 when reading was to be aborted, the parser's number and reason for a file that is not well-formed, error 91
  /// while the reader is closed, and error 5 while it is reading.
  void ReadFile() override;
  /// A handler may call it too; reading goes on all the same.
  void CloseFile() override { cursors_.reset(); }

  Element GetElement(ElementName name, Element parent) override;
  Element GetElement(std::string_view name, Element parent, std::string_view xpathQuery) override;
  /// Never a list: the reader does not know what is still to come.
  std::optional<std::vector<Element>> GetElements(std::string_view, Element, std::string_view) override {
    return std::nullopt;
  }
  Element GetFirstElement(ElementName name, Element parent) override;
  Element GetNextElement(ElementName name) override;

 private:
  /// What is known of a name.
  enum class Name : uint8_t { kNotLookedUp, kEntity, kOther };
  struct NamedKind {
    Name name = Name::kNotLookedUp;
    EntityKind kind{};
  };

  void StartElement(const ParsedName& name, std::span<const ParsedAttribute> attributes) override;
  void EndElement(const ParsedName& name) override;
  void Characters(std::string_view text) override;
  void Leaf(const ParsedName& name, std::string_view text) override;

  std::optional<EntityKind> KindOf(const ParsedName& name);
  void BeginEntity(EntityKind kind, const char* localName);
  void EndInnermost(const ParsedName& name);
  void EndEntity();

  std::string file_name_;
  bool abort_requested_ = false;
  bool reading_ = false;
  std::optional<Cursors> cursors_;  // while the file is open
  std::optional<Parser> parser_;
  std::unique_ptr<Document> entity_;
  std::optional<DocumentBuilder> builder_;  // of the running parse
  std::vector<NamedKind> kinds_;            // by the numbers of names in the running parse
  bool in_entity_ = false;
  bool takes_leaves_ = false;  // the entity takes whatever comes, but for its end
  EntityKind kind_{};          // of the entity, or of the last one
  std::string current_name_;
  const char* current_pointer_ = nullptr;  // the name as the parser has it, the same for every element of that name
  size_t depth_ = 0;                       // open elements of the entity
};

}  // namespace zevo

#endif  // ZEVO_DAL_SAXDALREADER_H_
