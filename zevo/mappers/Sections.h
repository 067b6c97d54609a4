// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MAPPERS_SECTIONS_H_
#define ZEVO_MAPPERS_SECTIONS_H_

#include <zevo/mappers/Layout.h>

#include <memory>

namespace zevo {

// What the mappers share about the sections of the file.

inline constexpr ElementName kMasterFiles = "MasterFiles";
inline constexpr ElementName kTaxTable = "TaxTable";
inline constexpr ElementName kTaxTableEntry = "TaxTableEntry";
inline constexpr ElementName kGeneralLedgerEntries = "GeneralLedgerEntries";
inline constexpr ElementName kJournal = "Journal";
inline constexpr ElementName kSourceDocuments = "SourceDocuments";
inline constexpr ElementName kSalesInvoices = "SalesInvoices";
inline constexpr ElementName kLine = "Line";

/// The sales invoices section, or nothing, of a writer or a reader.
template <class WriterOrReader>
Element SalesInvoicesSection(WriterOrReader& file) {
  const Element sourceDocuments = file.GetElement(kSourceDocuments, {}, {});
  return sourceDocuments ? file.GetElement(kSalesInvoices, sourceDocuments, {}) : Element();
}

/// The child of a name under `parent`, created when it is missing.
inline Element GetOrCreate(IDALHelper& writer, ElementName name, Element parent) {
  const Element element = writer.GetElement(name, parent, {});
  return element ? element : writer.CreateElement(name, {}, parent, true);
}

/// Writes a record as one element under MasterFiles.
template <class R, class RecordLayout>
void CreateMasterRecord(const RecordLayout& layout, ElementName name, const R& value, IDALHelper& writer) {
  const Element masterFiles = GetOrCreate(writer, kMasterFiles, {});
  layout.Write(value, writer.CreateElement(name, {}, masterFiles, true), writer);
  writer.EndElement(name);
}

/// Fills the slot with a new record read from an element, or with nothing when the element is.
template <class R, class RecordLayout>
void ReadRecord(const RecordLayout& layout, Element element, std::shared_ptr<R>& value, IDALReader& reader) {
  value = nullptr;
  if (!element) return;
  value = std::make_shared<R>();
  layout.Read(*value, element, reader);
}

/// Fills the slot with the first or the next record of that name under MasterFiles.
template <class R, class RecordLayout>
void ReadMasterRecord(const RecordLayout& layout, ElementName name, std::shared_ptr<R>& value, IDALReader& reader,
                      bool first) {
  Element element;
  if (!first) {
    element = reader.GetNextElement(name);
  } else if (const Element masterFiles = reader.GetElement(kMasterFiles, {})) {
    element = reader.GetFirstElement(name, masterFiles);
  }
  ReadRecord(layout, element, value, reader);
}

inline int32_t CountMasterRecords(ElementName name, IDALReader& reader) {
  const Element masterFiles = reader.GetElement(kMasterFiles, {});
  return masterFiles ? CountOf(reader, name, masterFiles) : 0;
}

/// The three totals at the front of a section, alike in both sections.
template <class Section>
inline constexpr auto kTotalsLayout = LayoutFor<Section>(Rows{
    ZEVO_ROW(NumberOfEntries, kAlways),
    ZEVO_ROW(TotalDebit, kAlways, TwoDecimalsCodec()),
    ZEVO_ROW(TotalCredit, kAlways, TwoDecimalsCodec()),
});

}  // namespace zevo

#endif  // ZEVO_MAPPERS_SECTIONS_H_
