// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_ADAPTERS_H_
#define ZEVO_ADAPTERS_H_

// Everything that a host program needs.

#include <zevo/Error.h>
#include <zevo/FilePlace.h>
#include <zevo/TextHash.h>
#include <zevo/Utf8.h>
#include <zevo/facades/AuditFile.h>
#include <zevo/facades/AuditFileReader.h>
#include <zevo/facades/AuditFileScanner.h>
#include <zevo/facades/AuditFileStreamWriter.h>
#include <zevo/facades/AuditFileStreamer.h>
#include <zevo/facades/AuditFileValidator.h>
#include <zevo/facades/Facade.h>
#include <zevo/facades/SchemaFacts.h>
#include <zevo/facades/WrittenForm.h>
#include <zevo/model/AddressStructure.h>
#include <zevo/model/Amount.h>
#include <zevo/model/AuditException.h>
#include <zevo/model/CreditNote.h>
#include <zevo/model/CreditNoteCollection.h>
#include <zevo/model/CurrencyStructure.h>
#include <zevo/model/Customer.h>
#include <zevo/model/Decimal.h>
#include <zevo/model/DocumentTotals.h>
#include <zevo/model/EntityKind.h>
#include <zevo/model/ErrorDescription.h>
#include <zevo/model/Finding.h>
#include <zevo/model/GeneralLedger.h>
#include <zevo/model/GeneralLedgerEntries.h>
#include <zevo/model/Header.h>
#include <zevo/model/Invoice.h>
#include <zevo/model/InvoiceLine.h>
#include <zevo/model/InvoiceLineCollection.h>
#include <zevo/model/Journal.h>
#include <zevo/model/Language.h>
#include <zevo/model/LineCollection.h>
#include <zevo/model/Options.h>
#include <zevo/model/OrderReferences.h>
#include <zevo/model/Problem.h>
#include <zevo/model/Product.h>
#include <zevo/model/Property.h>
#include <zevo/model/PropertyText.h>
#include <zevo/model/PropertyWalk.h>
#include <zevo/model/Record.h>
#include <zevo/model/References.h>
#include <zevo/model/SAFTConstants.h>
#include <zevo/model/SalesInvoices.h>
#include <zevo/model/ScannedElement.h>
#include <zevo/model/SentenceName.h>
#include <zevo/model/Settlement.h>
#include <zevo/model/ShippingPointStructure.h>
#include <zevo/model/SnakeCase.h>
#include <zevo/model/Supplier.h>
#include <zevo/model/Tax.h>
#include <zevo/model/TaxTable.h>
#include <zevo/model/TaxTableEntry.h>
#include <zevo/model/TaxTableEntryCollection.h>
#include <zevo/model/TextForm.h>
#include <zevo/model/Totals.h>
#include <zevo/model/Transaction.h>
#include <zevo/model/TransactionLine.h>
#include <zevo/model/Violation.h>

#endif  // ZEVO_ADAPTERS_H_
