// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_TOOLS_SAFT_EXPORT_EXPORTTEST_H_
#define ZEVO_TESTS_TOOLS_SAFT_EXPORT_EXPORTTEST_H_

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tests/tools/saft/ToolTest.h"
#include "tests/tools/saft/tables/TestDatabase.h"

namespace zevo::testing {

/// Exports audit files into a database of a kind.
class ExportTest : public ToolTest {
 protected:
  explicit ExportTest(DatabaseKind kind) : database_(MakeDatabase(kind, folder_)) {}
  void SetUp() override {
    if (!database_) GTEST_SKIP() << kNoServer;
  }

  /// What an export says; it must end well.
  std::string Export(const std::vector<std::string>& files, const std::vector<std::string>& options = {}) const {
    const Outcome outcome = Try(files, options);
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    EXPECT_EQ(outcome.err, "");
    return outcome.out;
  }
  /// How one ends.
  Outcome Try(const std::vector<std::string>& files, const std::vector<std::string>& options = {}) const {
    std::vector<std::string> arguments{"export"};
    arguments.insert(arguments.end(), files.begin(), files.end());
    arguments.insert(arguments.end(), {"--to", database_->Name()});
    arguments.insert(arguments.end(), options.begin(), options.end());
    return Run(arguments);
  }
  std::vector<std::string> Rows(const std::string& query) const { return database_->Run(query); }

  /// A file of a company and a period with whatever sections.
  std::string File(std::string_view name, std::string_view company, std::string_view start, std::string_view end,
                   std::string_view sections = "") const {
    std::string text = R"(<AuditFile xmlns="urn:OECD:StandardAuditFile-Tax:PT_1.01_01"><Header><AuditFileVersion>)"
                       "1.01_01</AuditFileVersion><TaxRegistrationNumber>";
    text.append(company).append("</TaxRegistrationNumber><CompanyName>Padaria</CompanyName><StartDate>").append(start);
    text.append("</StartDate><EndDate>").append(end).append("</EndDate></Header>").append(sections);
    return folder_.Write(name, text.append("</AuditFile>"));
  }
  static std::string Invoices(std::string_view elements) {
    return "<SourceDocuments><SalesInvoices><Invoice>" + std::string(elements) +
           "</Invoice></SalesInvoices></SourceDocuments>";
  }
  std::string Company() const {
    EXPECT_EQ(Run({"create", ZEVO_COMPANY_FOLDER, folder_.Path("company.xml")}).code, 0);
    return folder_.Path("company.xml");
  }

  const std::unique_ptr<TestDatabase> database_;  // null where there is no such server
};

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_TOOLS_SAFT_EXPORT_EXPORTTEST_H_
