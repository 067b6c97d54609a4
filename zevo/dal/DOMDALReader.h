// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_DAL_DOMDALREADER_H_
#define ZEVO_DAL_DOMDALREADER_H_

#include <zevo/dal/Cursors.h>
#include <zevo/dal/IDALReader.h>
#include <zevo/platform/Document.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zevo {

/// The reader that holds the whole file in memory.
class DOMDALReader : public IDALReader {
 public:
  DOMDALReader();
  ~DOMDALReader() override;

  bool IsOpen() const override { return document_ != nullptr; }
  const std::string& AuditFileName() const override { return file_name_; }
  void set_AuditFileName(std::string_view value) override { file_name_ = value; }
  /// Loads the file. Walks that have begun end. A failure leaves the reader closed.
  void OpenFile() override;
  void ReadFile() override {}
  /// Walks end for good: after a new OpenFile none can begin. Owners make a new reader for each file.
  void CloseFile() override;

  // Without a document these raise error 91.
  Element GetElement(ElementName name, Element parent) override;
  Element GetElement(std::string_view name, Element parent, std::string_view xpathQuery) override;
  std::optional<std::vector<Element>> GetElements(std::string_view name, Element parent,
                                                  std::string_view xpathQuery) override;
  Element GetFirstElement(ElementName name, Element parent) override;
  Element GetNextElement(ElementName name) override;

 private:
  Element Base(Element parent) const;

  std::string file_name_;
  std::unique_ptr<Document> document_;
  std::optional<Cursors> cursors_;
};

}  // namespace zevo

#endif  // ZEVO_DAL_DOMDALREADER_H_
