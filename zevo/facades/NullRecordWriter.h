// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_FACADES_NULLRECORDWRITER_H_
#define ZEVO_FACADES_NULLRECORDWRITER_H_

#include <zevo/dal/IDALHelper.h>
#include <zevo/facades/NullRecord.h>

#include <string>
#include <string_view>
#include <utility>

namespace zevo {

/// What a mapper is given with a null record: it finds the elements that the real writer has, so that it makes its
/// checks as ever, and raises error 91 at the first thing to be written.
class NullRecordWriter final : public IDALHelper {
 public:
  explicit NullRecordWriter(IDALHelper& writer) : writer_(writer) {}

  bool IsOpen() const override { return writer_.IsOpen(); }
  const std::string& AuditFileName() const override { return writer_.AuditFileName(); }
  void set_AuditFileName(std::string_view) override { Refuse(); }
  void CreateFile() override { Refuse(); }
  void OpenFile() override { Refuse(); }
  void SaveFile() override { Refuse(); }
  void CloseFile() override { Refuse(); }

  Element GetElement(ElementName name, Element parent, std::string_view xpathQuery) override {
    return writer_.GetElement(name, parent, xpathQuery);
  }
  Element CreateElement(ElementName, std::string_view, Element, bool) override { Refuse(); }
  void EndElement(ElementName) override { Refuse(); }
  void UpdateElement(ElementName, std::string_view, Element, bool) override { Refuse(); }

  /// Raises error 91.
  [[noreturn]] static void Refuse();

 private:
  IDALHelper& writer_;
};

/// Runs a mapper's operation on `writer`. With a null record it raises error 91, at the latest when the operation has
/// found nothing to write.
template <class R, class Operation>
void WriteRecord(const R& record, IDALHelper& writer, Operation&& operation) {
  if (!IsNull(record)) return std::forward<Operation>(operation)(writer);
  NullRecordWriter refusing(writer);
  std::forward<Operation>(operation)(refusing);
  NullRecordWriter::Refuse();
}

}  // namespace zevo

#endif  // ZEVO_FACADES_NULLRECORDWRITER_H_
