// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_DAL_TEXTFILEDALHELPER_H_
#define ZEVO_DAL_TEXTFILEDALHELPER_H_

#include <zevo/dal/IDALHelper.h>
#include <zevo/dal/TextStream.h>
#include <zevo/model/ScannedElement.h>
#include <zevo/platform/Document.h>

#include <array>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zevo {

/// The writer that puts every element into the file at once, all on one line. It keeps no more than the names of the
/// elements that are open. An end tag is written when an element arrives that does not belong inside, or at the close.
///
/// Nothing that was written can be found or changed: GetElement knows only open elements, by name alone, and
/// UpdateElement appends. A parent that is not open closes everything, the root included; it is for the caller to keep
/// the order.
///
/// Once a write has failed, everything that writes or asks what is open raises that failure, until the file is closed.
class TextFileDALHelper : public IDALHelper {
 public:
  TextFileDALHelper();
  /// Completes the file with all its end tags.
  ~TextFileDALHelper() override;

  bool IsOpen() const override { return stream_.IsOpen(); }
  const std::string& AuditFileName() const override { return stream_.FileName(); }
  void set_AuditFileName(std::string_view value) override { stream_.set_FileName(value); }
  /// Begins the file anew. A failure leaves the writer closed.
  void CreateFile() override;
  /// The same as `CreateFile`: a file that exists cannot be continued.
  void OpenFile() override { CreateFile(); }
  /// Does nothing: every element is in the file, or will be.
  void SaveFile() override {}
  /// Writes all pending end tags and closes the file, which it does also when it raises a failed write.
  void CloseFile() override;

  Element GetElement(ElementName name, Element parent, std::string_view xpathQuery) override;
  /// A text is written as it is, spaces included. Gives an element only where it began one without text.
  Element CreateElement(ElementName name, std::string_view value, Element parent, bool required) override;
  void EndElement(ElementName name) override;
  void UpdateElement(ElementName name, std::string_view value, Element parent, bool required) override;

  // Of elements that no mapper knows. A text is written so that it reads back as it is, carriage returns included.
  // These raise error 5, before anything is written, where a text is as in `CreateElement` or a name cannot be written.

  /// Begins an element inside the innermost that is open.
  void BeginElement(std::string_view name);
  /// Ends the innermost; false where only the root is open.
  bool EndInnermost();
  /// Writes elements with all that is in them inside the innermost that is open.
  void WriteElements(std::span<const ScannedElement> elements);

 private:
  Element HandleFor(std::string_view name);
  Element HandleFor(ElementName name);
  Element Begin(Element handle);
  [[gnu::noinline]] Element WriteAnyElement(ElementName name, std::string_view value, Element parent);
  Element CloseInnermost();
  void CloseToParent(Element parent);
  void CloseAll();

  TextStream stream_;
  // One element for each name, as a handle: open elements of the same name share it.
  std::unique_ptr<Document> handles_;
  std::array<Element, kElementNames.size() + 1> known_handles_;  // by number; nothing until first asked for
  std::vector<Element> open_;
  std::vector<const ScannedElement*> inside_;  // what is open of a list that is being written
};

}  // namespace zevo

#endif  // ZEVO_DAL_TEXTFILEDALHELPER_H_
