#include <zevo/facades/AuditFileStreamer.h>

#include <zevo/Error.h>
#include <zevo/dal/SAXDALReader.h>
#include <zevo/mappers/CustomerDALC.h>
#include <zevo/mappers/GeneralLedgerDALC.h>
#include <zevo/mappers/GeneralLedgerEntriesDALC.h>
#include <zevo/mappers/HeaderDALC.h>
#include <zevo/mappers/InvoiceDALC.h>
#include <zevo/mappers/JournalDALC.h>
#include <zevo/mappers/ProductDALC.h>
#include <zevo/mappers/SalesInvoicesDALC.h>
#include <zevo/mappers/SupplierDALC.h>
#include <zevo/mappers/TaxTableDALC.h>
#include <zevo/mappers/TransactionDALC.h>
#include <zevo/model/LetterCase.h>
#include <zevo/platform/HostMessages.h>

#include <algorithm>
#include <array>

namespace zevo {
namespace {

// How the mappers read: a record that stands alone, one of several, one of a journal. The reader holds the very record,
// so it is always "the next" one.
template <class Mapper, class R>
std::shared_ptr<Record> ReadWith(void (Mapper::*read)(std::shared_ptr<R>&, IDALReader&), IDALReader& reader) {
  std::shared_ptr<R> record;
  (Mapper().*read)(record, reader);
  return record;
}
template <class Mapper, class R>
std::shared_ptr<Record> ReadWith(void (Mapper::*read)(std::shared_ptr<R>&, IDALReader&, bool), IDALReader& reader) {
  std::shared_ptr<R> record;
  (Mapper().*read)(record, reader, false);
  return record;
}
template <class Mapper, class R>
std::shared_ptr<Record> ReadWith(void (Mapper::*read)(std::shared_ptr<R>&, const Journal*, IDALReader&, bool),
                                 IDALReader& reader) {
  std::shared_ptr<R> record;
  (Mapper().*read)(record, nullptr, reader, false);
  return record;
}

template <auto kRead>
std::shared_ptr<Record> Read(IDALReader& reader) {
  return ReadWith(kRead, reader);
}

struct Entity {
  std::string_view name;
  std::string_view read_member;  // the source of its errors
  std::shared_ptr<Record> (*read)(IDALReader&);
};

constexpr auto kEntities = std::to_array<Entity>({
    {"Header", "ReadHeader", &Read<&HeaderDALC::ReadHeader>},
    {"GeneralLedger", "ReadGeneralLedger", &Read<&GeneralLedgerDALC::ReadGeneralLedger>},
    {"Customer", "ReadCustomer", &Read<&CustomerDALC::ReadCustomer>},
    {"Supplier", "ReadSupplier", &Read<&SupplierDALC::ReadSupplier>},
    {"Product", "ReadProduct", &Read<&ProductDALC::ReadProduct>},
    {"TaxTable", "ReadTaxTable", &Read<&TaxTableDALC::ReadTaxTable>},
    {"GeneralLedgerEntries", "ReadGeneralLedgerEntries", &Read<&GeneralLedgerEntriesDALC::ReadGeneralLedgerEntries>},
    {"Journal", "ReadJournal", &Read<&JournalDALC::ReadJournal>},
    {"Transaction", "ReadTransaction", &Read<&TransactionDALC::ReadTransaction>},
    {"SalesInvoices", "ReadSalesInvoices", &Read<&SalesInvoicesDALC::ReadSalesInvoices>},
    {"Invoice", "ReadInvoice", &Read<&InvoiceDALC::ReadFlatInvoice>},
});

}  // namespace

AuditFileStreamer::AuditFileStreamer() : Facade("AuditFileStreamer", false), reader_(std::make_unique<SAXDALReader>()) {
  reader_->ReadEntity = [this](const std::string& entityName, Element) {
    const std::shared_ptr<Record> record = Build(entityName);
    if (ReadEntity) ReadEntity(entityName, record);
  };
  reader_->FinishedReading = [this] {
    if (FinishedReading) FinishedReading();
    reading_ = false;
  };
}
AuditFileStreamer::~AuditFileStreamer() = default;

const std::string& AuditFileStreamer::AuditFileName() const { return reader_->AuditFileName(); }
void AuditFileStreamer::set_AuditFileName(std::string_view value) { reader_->set_AuditFileName(value); }

bool AuditFileStreamer::OpenAuditFile() {
  return Attempt([&] {
    RequireOpenable(reader_->IsOpen(), AuditFileName(), Input::kFileOrStandardInput);
    reader_->OpenFile();
  });
}

bool AuditFileStreamer::ReadAuditFile(bool wait) {
  const bool read = Attempt([&] {
    Require(reader_->IsOpen(), Message::kNotStarted, "ReadAuditFile");
    reading_ = true;
    entity_failed_ = false;
    reader_->ReadFile();
    // Events of the reading end it.
    // cppcheck-suppress knownConditionTrueFalse
    while (wait && reading_) AwaitHostMessages();
  });
  return read && !entity_failed_;
}

bool AuditFileStreamer::CloseAuditFile() {
  reader_->CloseFile();
  ClearError();
  return true;
}

void AuditFileStreamer::AbortReading() {
  if (reader_->IsOpen()) reader_->set_AbortRequested(true);
}

uint64_t AuditFileStreamer::BytesRead() const { return reader_->BytesRead(); }

// A record that cannot be built does not end the reading. Why it cannot is told until the handler returns.
std::shared_ptr<Record> AuditFileStreamer::Build(std::string_view entityName) {
  const auto entity = std::ranges::find_if(
      kEntities, [&](const Entity& candidate) { return EqualIgnoringCase(candidate.name, entityName); });
  std::shared_ptr<Record> record;
  const bool built = Attempt([&] {
    Require(reader_->IsOpen(), Message::kNotStarted, entity->read_member);
    record = entity->read(*reader_);
  });
  if (!built) entity_failed_ = true;
  return built ? record : nullptr;
}

}  // namespace zevo
