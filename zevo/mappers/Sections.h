// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MAPPERS_SECTIONS_H_
#define ZEVO_MAPPERS_SECTIONS_H_

#include <zevo/mappers/Layout.h>

#include <memory>

namespace zevo {

// What the mappers share about the sections of the file.

inline constexpr ElementName kMasterFiles = "MasterFiles";
inline constexpr ElementName kGeneralLedgerEntries = "GeneralLedgerEntries";
inline constexpr ElementName kSourceDocuments = "SourceDocuments";
inline constexpr ElementName kSalesInvoices = "SalesInvoices";

/// The sales invoices section, or nothing; `helper` writes or reads.
template <class Helper>
Element SalesInvoicesSection(Helper& helper) {
  const Element sourceDocuments = helper.GetElement(kSourceDocuments.Text(), {}, {});
  return sourceDocuments ? helper.GetElement(kSalesInvoices.Text(), sourceDocuments, {}) : Element();
}

/// The child of a name under `parent`, created when it is missing.
inline Element GetOrCreate(IDALHelper& helper, ElementName name, Element parent) {
  const Element element = helper.GetElement(name.Text(), parent, {});
  return element ? element : helper.CreateElement(name.Text(), {}, parent, true);
}

/// Writes a record as one element under MasterFiles.
template <class R, class RecordLayout>
void CreateMasterRecord(const RecordLayout& layout, ElementName name, const R& value, IDALHelper& helper) {
  const Element masterFiles = GetOrCreate(helper, kMasterFiles, {});
  layout.Write(value, helper.CreateElement(name.Text(), {}, masterFiles, true), helper);
  helper.EndElement(name.Text());
}

/// Fills the slot with a new record read from an element, or with nothing when the element is.
template <class R, class RecordLayout>
void ReadRecord(const RecordLayout& layout, Element element, std::shared_ptr<R>& value, IDALReader& helper) {
  value = nullptr;
  if (!element) return;
  value = std::make_shared<R>();
  layout.Read(*value, element, helper);
}

/// Fills the slot with the first or the next record of that name under MasterFiles.
template <class R, class RecordLayout>
void ReadMasterRecord(const RecordLayout& layout, ElementName name, std::shared_ptr<R>& value, IDALReader& helper,
                      bool first) {
  Element element;
  if (!first) {
    element = helper.GetNextElement(name.Text());
  } else if (const Element masterFiles = helper.GetElement(kMasterFiles.Text(), {}, {})) {
    element = helper.GetFirstElement(name.Text(), masterFiles);
  }
  ReadRecord(layout, element, value, helper);
}

inline int32_t CountMasterRecords(ElementName name, IDALReader& helper) {
  const Element masterFiles = helper.GetElement(kMasterFiles.Text(), {}, {});
  return masterFiles ? CountOf(helper, name, masterFiles) : 0;
}

// The three totals at the front of a section, alike in both sections.

/// Replaces the totals, or appends those that are missing.
template <class R>
void UpdateTotals(const R& value, Element section, IDALHelper& helper) {
  helper.UpdateElement("NumberOfEntries", IntegerText(value.NumberOfEntries()), section, true);
  helper.UpdateElement("TotalDebit", TwoDecimalsText(value.TotalDebit()), section, true);
  helper.UpdateElement("TotalCredit", TwoDecimalsText(value.TotalCredit()), section, true);
}

/// Raises error 13 when the number of entries is no number.
template <class R>
void ReadTotals(R& value, Element section) {
  ElementTexts texts(section);
  value.set_NumberOfEntries(IntegerFromText(texts["NumberOfEntries"]));
  value.set_TotalDebit(AmountFromText(texts["TotalDebit"]));
  value.set_TotalCredit(AmountFromText(texts["TotalCredit"]));
}

}  // namespace zevo

#endif  // ZEVO_MAPPERS_SECTIONS_H_
