// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_DAL_DOMDALHELPER_H_
#define ZEVO_DAL_DOMDALHELPER_H_

#include <zevo/dal/IDALHelper.h>
#include <zevo/platform/Document.h>

#include <memory>
#include <string>
#include <string_view>

namespace zevo {

/// The writer that keeps the whole document in memory until it is saved.
class DOMDALHelper : public IDALHelper {
 public:
  DOMDALHelper();
  ~DOMDALHelper() override;

  bool IsOpen() const override { return document_ != nullptr; }
  const std::string& AuditFileName() const override { return file_name_; }
  void set_AuditFileName(std::string_view value) override { file_name_ = value; }
  /// Begins an empty document. Nothing is written to disk.
  void CreateFile() override;
  /// Loads the file. A failure leaves the writer closed.
  void OpenFile() override;
  /// Replaces the file by the document, as a whole or not at all.
  void SaveFile() override;
  void CloseFile() override { document_.reset(); }

  Element GetElement(ElementName name, Element parent, std::string_view xpathQuery) override;
  /// Texts are written without the spaces at their ends.
  Element CreateElement(ElementName name, std::string_view value, Element parent, bool required) override;
  void EndElement(ElementName) override {}
  /// The new text of an element that exists is taken as given, spaces and emptiness included.
  void UpdateElement(ElementName name, std::string_view value, Element parent, bool required) override;

 private:
  Element Base(Element parent) const { return parent ? parent : document_->Root(); }

  std::string file_name_;
  std::unique_ptr<Document> document_;
  // The root declares the file's namespace as the default one and nothing in the document declares another.
  bool one_namespace_ = true;
};

}  // namespace zevo

#endif  // ZEVO_DAL_DOMDALHELPER_H_
