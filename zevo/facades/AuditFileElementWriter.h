// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_FACADES_AUDITFILEELEMENTWRITER_H_
#define ZEVO_FACADES_AUDITFILEELEMENTWRITER_H_

#include <zevo/Api.h>
#include <zevo/facades/Facade.h>
#include <zevo/model/ScannedElement.h>

#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace zevo {

class TextFileDALHelper;

/// Writes an audit file of elements, for programs that pass on what `AuditFileScanner` reads: names and texts are
/// written as they are, whether or not a record could hold them, and read back the same. Everything else is for the
/// program: sections, their order, and what the schema demands.
///
/// Declaration, encoding and layout of the file are those of `AuditFileStreamWriter`; characters that Windows-1252
/// lacks, and carriage returns, are written as references. The file may be of any size: nothing of it is kept in
/// memory.
///
/// Every operation but `CloseAuditFile` returns false on failure, keeps the failure in `AuditException` and throws
/// nothing; success makes `AuditException` null. Bytes are held back, so that a full disk may show some calls later, at
/// the latest in `CloseAuditFile`; from then on every operation that writes fails with that same failure until the file
/// is closed. An object is used by one thread at a time.
class ZEVO_API AuditFileElementWriter : public Facade {
 public:
  AuditFileElementWriter();
  /// Completes and closes a file that was not closed.
  ~AuditFileElementWriter();

  /// Path of the file, in UTF-8.
  const std::string& AuditFileName() const;
  void set_AuditFileName(std::string_view value);

  /// Begins the file and its root element, AuditFile. Fails with message 4 while one is being written, 1 without a file
  /// name, 3 when the file exists, and with a run-time error that tells the system's reason.
  bool CreateAuditFile();
  /// Ends all elements and closes the file; true also when none was begun. A write that fails is thrown as `Error`, and
  /// the file is closed all the same.
  bool CloseAuditFile();

  // What follows fails with message 5 while no file is being written, and with error 5, before anything is written,
  // where a text is no valid UTF-8 or holds a character that XML forbids, and where a name is none that XML takes, or
  // has other letters than those of ISO-8859-1.

  /// Begins an element inside the one that was begun last and is open; the first stands in the root. What is written up
  /// to its end stands in it.
  bool BeginElement(std::string_view name);
  /// Ends the element that was begun last and is open. Fails with error 5 where there is none.
  bool EndElement();
  /// Writes an element with a text, which may be empty.
  bool CreateElement(std::string_view name, std::string_view text);
  /// Writes elements with all that is in them, as `AuditFileScanner::Elements` has those of a record: `depth` tells
  /// what stands in what, counted from that of the first; `place` does not count. The text of an element stands before
  /// the elements in it.
  bool CreateElements(std::span<const ScannedElement> elements);

 private:
  std::unique_ptr<TextFileDALHelper> writer_;
};

}  // namespace zevo

#endif  // ZEVO_FACADES_AUDITFILEELEMENTWRITER_H_
