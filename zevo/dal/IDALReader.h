// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_DAL_IDALREADER_H_
#define ZEVO_DAL_IDALREADER_H_

#include <zevo/dal/ElementName.h>
#include <zevo/platform/Document.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zevo {

/// What the mappers read from, whether the reader holds the whole file or one entity of it. A parent that is nothing is
/// the root element. The documents of a reader number their names as kElementNames does.
class IDALReader {
 public:
  virtual ~IDALReader() = default;

  virtual bool IsOpen() const = 0;
  virtual const std::string& AuditFileName() const = 0;
  virtual void set_AuditFileName(std::string_view value) = 0;
  virtual void OpenFile() = 0;
  /// Reads the file through, where the reader works by events.
  virtual void ReadFile() = 0;
  virtual void CloseFile() = 0;

  /// The first child of a name; nothing when there is none.
  virtual Element GetElement(ElementName name, Element parent) = 0;
  /// The first element under `parent` that the name, with the query put behind it, selects; nothing when none does. The
  /// query is a predicate in square brackets or empty.
  virtual Element GetElement(std::string_view name, Element parent, std::string_view xpathQuery) = 0;
  /// All of them, in order; no list at all from a reader that cannot tell.
  virtual std::optional<std::vector<Element>> GetElements(std::string_view name, Element parent,
                                                          std::string_view xpathQuery) = 0;
  /// Begins to walk the children of a name; one walk for each name is remembered.
  virtual Element GetFirstElement(ElementName name, Element parent) = 0;
  /// Goes on with the walk of that name; nothing at its end.
  virtual Element GetNextElement(ElementName name) = 0;
};

}  // namespace zevo

#endif  // ZEVO_DAL_IDALREADER_H_
