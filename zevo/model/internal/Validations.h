// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_INTERNAL_VALIDATIONS_H_
#define ZEVO_MODEL_INTERNAL_VALIDATIONS_H_

#include <zevo/TextHash.h>
#include <zevo/platform/Document.h>
#include <zevo/platform/SchemaSource.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zevo {

/// What a schema file says of the length of texts: the one check that is made when a value is assigned to a record.
/// Keys are element paths, such as "/AuditFile/Header/CompanyID", found without regard to letter case. Only elements of
/// XML Schema's namespace declare anything.
class Validations {
 public:
  static constexpr int kNoLimit = -1;

  /// Loads the schema. One that cannot be loaded raises nothing: no schema is loaded then, and nothing is limited.
  /// When memory runs out, raises error 7.
  void LoadSchema(const SchemaSource& source);
  bool IsLoaded() const { return loaded_; }

  /// Greatest length in characters of the element under `key`, or kNoLimit. A path that the schema does not declare in
  /// place is looked up by its last name among the global elements. Raises error 13 when the schema's length is no
  /// number and error 6 when it is beyond 16 bits.
  int MaxLength(std::string_view key) const;

  /// The value, cut to the greatest length; whole with `reportOnly`. Raises what MaxLength raises.
  std::string Validate(std::string_view key, std::string_view value, bool reportOnly) const;

 private:
  using Table = TextMap<Element>;
  // The number of a path. As texts, the paths of a deep schema would take its size times its depth.
  using Path = uint32_t;
  static constexpr Path kTop = 0;
  static constexpr Path kNowhere = UINT32_MAX;

  class PathFinder;

  void FillTypeTable();
  void FillElementTable();
  Element Declared(std::string_view key) const;

  Document document_;
  bool loaded_ = false;
  Table types_;
  TextMap<Path> steps_;            // from one path to another, by StepOf
  std::vector<Element> elements_;  // by path; nothing where none is declared
  Table first_references_;         // by the name they refer to
  Table globals_;
};

}  // namespace zevo

#endif  // ZEVO_MODEL_INTERNAL_VALIDATIONS_H_
