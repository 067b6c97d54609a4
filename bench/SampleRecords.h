#ifndef ZEVO_BENCH_SAMPLERECORDS_H_
#define ZEVO_BENCH_SAMPLERECORDS_H_

#include <zevo/adapters.h>

#include <string>

namespace zevo::bench {

/// Writes a valid file of a retailer through `AuditFile`: a thousand customers and products, as many transactions of
/// two lines as invoices of three. The same every time. Throws std::runtime_error when an operation fails.
void WriteSampleFile(const std::string& fileName, int invoices);

}  // namespace zevo::bench

#endif  // ZEVO_BENCH_SAMPLERECORDS_H_
