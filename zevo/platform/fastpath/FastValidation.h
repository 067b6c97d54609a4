// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_FASTPATH_FASTVALIDATION_H_
#define ZEVO_PLATFORM_FASTPATH_FASTVALIDATION_H_

#include <zevo/platform/DigestSet.h>
#include <zevo/platform/Parser.h>
#include <zevo/platform/fastpath/FastSchema.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zevo {

/// Follows a well-formed file through a schema and says that it is valid, or gives it up: then nothing is said, and
/// libxml2 has to judge it. Each call returns whether to go on. Takes constant memory, and what DigestSet takes for
/// each key and for each reference whose key has not come yet.
class FastValidation {
 public:
  /// The schema must outlive this. For one file only.
  explicit FastValidation(const FastSchema& schema);

  /// Attributes give the file up, but on the root: declarations of namespaces, and where schemas may be found
  /// (`xsi:schemaLocation`, `xsi:noNamespaceSchemaLocation`).
  bool StartElement(const ParsedName& name, std::span<const ParsedAttribute> attributes);
  bool EndElement();
  /// An element without attributes and with nothing but this text.
  bool Leaf(const ParsedName& name, std::string_view text);
  bool Characters(std::string_view text);
  /// A comment neither ends a text nor is one.
  bool Comment(std::string_view) { return true; }

  /// Whether the file is through and valid.
  bool IsValid() const { return open_.empty() && schema_.MayEnd(state_); }

 private:
  using Context = FastSchema::Context;
  using Role = FastSchema::Role;

  // What an element goes on with once the one inside it has ended.
  struct Frame {
    const Context* context;
    FastSchema::State state;
  };
  struct Binding {
    std::string prefix;
    std::string uri;
  };

  FastSchema::Name NameOf(const ParsedName& name);
  FastSchema::Name Find(const ParsedName& name) const;
  // Nothing for a prefix that is not declared.
  std::optional<std::string_view> NamespaceOf(std::string_view prefix) const;
  bool TakeAttributes(std::span<const ParsedAttribute> attributes);

  static bool Takes(const Context& context, std::string_view text);
  void Begin(const FastSchema::Roles& roles);
  bool TakeFields(const Context& context, std::string_view text);
  bool End(const FastSchema::Roles& roles);
  bool CompleteTuple(const Role& role);
  bool CloseScopes(std::span<const Role> scopes);

  const FastSchema& schema_;
  std::vector<Binding> bindings_;        // of the root
  std::vector<FastSchema::Name> names_;  // by the numbers of the file's names
  const Context* context_ = nullptr;     // of the innermost open element; none before the root
  FastSchema::State state_ = FastSchema::kDocument;
  std::vector<Frame> open_;
  std::string text_;             // of the innermost open element, where it has one
  std::vector<Digest> tuples_;   // the fields of the keys that are being read; all zeros where one has not come
  std::vector<DigestSet> keys_;  // by constraint; of references, those without a key so far
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_FASTPATH_FASTVALIDATION_H_
