#ifndef ZEVO_TOOLS_SAFT_SUMMARYREADER_H_
#define ZEVO_TOOLS_SAFT_SUMMARYREADER_H_

#include <zevo/adapters.h>

#include <string>
#include <string_view>

#include "tools/saft/Summary.h"

namespace zevo::saft {

/// Takes the figures of an audit file. A failure of the library is a `Failure`.
class SummaryReader {
 public:
  explicit SummaryReader(const std::string& file);

  Summary Read();

 private:
  void ReadHeader();
  void ReadCounts();
  void ReadEntries();
  Totals ReadJournal(const Journal& journal);
  void ReadInvoices();

  /// Whether a read succeeded; false when it failed for want of the section, any other failure is thrown.
  bool Found(bool success, Message missing) const;
  /// `record` tells what was being read.
  void Require(bool success, std::string_view record = {}) const;

  AuditFileReader reader_;
  Summary summary_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_SUMMARYREADER_H_
