// SPDX-License-Identifier: Apache-2.0
#include "tests/facades/FileRecords.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace zevo::testing {
namespace {

template <class T>
void Add(FileRecords& found, const std::string& name, const std::shared_ptr<T>& record) {
  found.records.emplace_back(name, ValuesOf(record, name));
}

void SortByKind(FileRecords& found) {
  std::ranges::stable_sort(found.records, {}, [](const auto& entry) { return entry.first; });
}

// What a failing read leaves in the variable does not count.
template <class T, class Read>
std::shared_ptr<T> Try(Read&& read) {
  std::shared_ptr<T> record;
  return read(record) ? record : nullptr;
}

// A section that the file does not have is nothing; one that cannot be read is a record without values.
template <class T>
void AddSection(FileRecords& found, const std::string& name, AuditFileReader& reader,
                bool (AuditFileReader::*read)(std::shared_ptr<T>&), Message missing) {
  const auto record = Try<T>([&](auto& value) { return (reader.*read)(value); });
  if (record != nullptr || reader.AuditException()->Number() != kErrorBase + static_cast<int32_t>(missing)) {
    Add(found, name, record);
  }
}

template <class T>
void AddAll(FileRecords& found, const std::string& name, AuditFileReader& reader, int32_t count,
            bool (AuditFileReader::*read)(std::shared_ptr<T>&)) {
  for (; count > 0; --count) Add(found, name, Try<T>([&](auto& value) { return (reader.*read)(value); }));
}

template <class T>
bool AddIf(FileRecords& found, const std::string& name, const std::shared_ptr<Record>& record) {
  const auto cast = std::dynamic_pointer_cast<T>(record);
  if (cast) Add(found, name, cast);
  return cast != nullptr;
}

template <class... Classes>
void AddAsOneOf(FileRecords& found, const std::string& name, const std::shared_ptr<Record>& record) {
  if (!(AddIf<Classes>(found, name, record) || ...)) found.records.emplace_back(name, RecordValues());
}

void AddOfAnyKind(FileRecords& found, std::string_view name, const std::shared_ptr<Record>& record) {
  AddAsOneOf<Header, GeneralLedger, Customer, Supplier, Product, TaxTable, GeneralLedgerEntries, Journal, Transaction,
             SalesInvoices, Invoice>(found, std::string(name), record);
}

}  // namespace

FileRecords ReadOneByOne(const std::string& file) {
  FileRecords found;
  AuditFileReader reader;
  reader.set_AuditFileName(file);
  if (!reader.OpenAuditFile()) {
    found.failure = reader.AuditException();
    return found;
  }
  AddSection(found, "Header", reader, &AuditFileReader::ReadHeader, Message::kHeaderMissing);
  AddAll(found, "GeneralLedger", reader, reader.GeneralLedgers(), &AuditFileReader::ReadGeneralLedger);
  AddAll(found, "Customer", reader, reader.Customers(), &AuditFileReader::ReadCustomer);
  AddAll(found, "Supplier", reader, reader.Suppliers(), &AuditFileReader::ReadSupplier);
  AddAll(found, "Product", reader, reader.Products(), &AuditFileReader::ReadProduct);
  if (reader.TaxTableEntrys() > 0) {
    Add(found, "TaxTable", Try<TaxTable>([&](auto& value) { return reader.ReadTaxTable(value); }));
  }
  AddSection(found, "GeneralLedgerEntries", reader, &AuditFileReader::ReadGeneralLedgerEntries,
             Message::kEntriesExistText);
  for (int32_t journals = reader.Journals(); journals > 0; --journals) {
    const auto journal = Try<Journal>([&](auto& value) { return reader.ReadJournal(value); });
    Add(found, "Journal", journal);
    if (journal == nullptr) continue;
    for (int32_t count = reader.Transactions(journal.get()); count > 0; --count) {
      Add(found, "Transaction", Try<Transaction>([&](auto& value) { return reader.ReadTransaction(value, *journal); }));
    }
  }
  AddSection(found, "SalesInvoices", reader, &AuditFileReader::ReadSalesInvoices, Message::kSalesInvoicesMissing);
  AddAll(found, "Invoice", reader, reader.Invoices(), &AuditFileReader::ReadInvoice);
  SortByKind(found);
  return found;
}

FileRecords ReadScanned(const std::string& file) {
  FileRecords found;
  AuditFileScanner scanner;
  scanner.set_AuditFileName(file);
  std::shared_ptr<Record> record;
  const bool opened = scanner.OpenAuditFile();
  while (opened && scanner.ReadNext(record) && record != nullptr) AddOfAnyKind(found, NameOf(*record->Kind()), record);
  found.failure = scanner.AuditException();
  SortByKind(found);
  return found;
}

FileRecords ReadStreamed(const std::string& file) {
  FileRecords found;
  AuditFileStreamer streamer;
  streamer.set_AuditFileName(file);
  streamer.ReadEntity = [&found](const std::string& name, const std::shared_ptr<Record>& record) {
    AddOfAnyKind(found, name, record);
  };
  if (streamer.OpenAuditFile()) streamer.ReadAuditFile();
  found.failure = streamer.AuditException();
  SortByKind(found);
  return found;
}

std::string Difference(const FileRecords& one, const FileRecords& other) {
  for (size_t i = 0; i < std::max(one.records.size(), other.records.size()); ++i) {
    if (i >= one.records.size()) return other.records[i].first + " in the second only";
    if (i >= other.records.size()) return one.records[i].first + " in the first only";
    const auto& [kind, values] = one.records[i];
    const auto& [other_kind, other_values] = other.records[i];
    if (kind != other_kind) return std::string(kind).append(" and ").append(other_kind);
    if (values.size() != other_values.size()) return kind + " with unlike properties";
    for (auto left = values.begin(), right = other_values.begin(); left != values.end(); ++left, ++right) {
      if (*left != *right) {
        return left->first + " \"" + left->second + "\" and " + right->first + " \"" + right->second + "\"";
      }
    }
  }
  return {};
}

}  // namespace zevo::testing
