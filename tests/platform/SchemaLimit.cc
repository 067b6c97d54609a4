// SPDX-License-Identifier: Apache-2.0
#include "tests/platform/SchemaLimit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <libxml/xmlerror.h>
#include <zevo/platform/SchemaDocument.h>
#include <zevo/platform/SchemaRestrictions.h>
#include <zevo/platform/SchemaSource.h>

#include "tests/platform/SchemaPieces.h"
#include "tests/support/Errors.h"
#include "tests/support/ProcessorTime.h"
#include "tests/support/Sanitizers.h"

namespace zevo::testing {
namespace {

constexpr std::string_view kSource = "Test";

}  // namespace

void RequireModest(std::string_view schema) {
  Document document;
  LoadSchemaDocument(schema, kSource, document);
  RequireModestSchema(document, "urn:t", kSource);
}

void ExpectKept(const SchemaLimit& limit) {
  EXPECT_NO_THROW(RequireModest(SchemaOfUrnT(limit.within)));
  const std::string beyond = SchemaOfUrnT(limit.beyond);
  Error error(0, "");
  const double seconds = ProcessorSeconds([&] { error = ErrorOf([&] { RequireModest(beyond); }); });
  EXPECT_EQ(error.Number(), XML_ERR_USER_STOP);
  EXPECT_EQ(error.Source(), kSource);
  EXPECT_THAT(error.Description(), ::testing::StartsWith("O esquema "));
  EXPECT_THAT(error.Description(), ::testing::HasSubstr(limit.reason));
  EXPECT_LT(seconds, kSanitized ? 2 : 0.3);
  EXPECT_LE(beyond.size(), SchemaSource::kLargest) << "another limit comes first";
}

}  // namespace zevo::testing
