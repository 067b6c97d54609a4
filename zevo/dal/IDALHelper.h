// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_DAL_IDALHELPER_H_
#define ZEVO_DAL_IDALHELPER_H_

#include <zevo/dal/ElementName.h>
#include <zevo/platform/Document.h>

#include <string>
#include <string_view>

namespace zevo {

/// What the mappers write through, whether the document is kept in memory or goes to the file at once. A parent that is
/// nothing is the root element. Elements are only ever appended.
class IDALHelper {
 public:
  virtual ~IDALHelper() = default;

  virtual bool IsOpen() const = 0;
  virtual const std::string& AuditFileName() const = 0;
  virtual void set_AuditFileName(std::string_view value) = 0;
  virtual void CreateFile() = 0;
  virtual void OpenFile() = 0;
  virtual void SaveFile() = 0;
  virtual void CloseFile() = 0;

  /// The first element under `parent` that the name, with the query put behind it, selects; nothing when none does. The
  /// query is a predicate in square brackets or empty.
  virtual Element GetElement(ElementName name, Element parent, std::string_view xpathQuery) = 0;
  /// Appends an element with a text, which may be left out when it is empty and not `required`. A required one without
  /// text is also how a section or a group begins. Raises error 5, before anything is written, when the text is not
  /// UTF-8 or holds a character that XML forbids.
  virtual Element CreateElement(ElementName name, std::string_view value, Element parent, bool required) = 0;
  /// Tells that an element is complete.
  virtual void EndElement(ElementName name) = 0;
  /// Gives an element a new text; one that does not exist is created.
  virtual void UpdateElement(ElementName name, std::string_view value, Element parent, bool required) = 0;
};

}  // namespace zevo

#endif  // ZEVO_DAL_IDALHELPER_H_
