// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <libxml/xmlerror.h>
#include <sys/stat.h>
#include <zevo/platform/SchemaSource.h>

#include <string>

#include "tests/support/Errors.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace {

using ::testing::AllOf;
using testing::ErrorOf;
using ::testing::HasSubstr;
using testing::ReadBytes;
using ::testing::StartsWith;

class SchemaSourceTest : public ::testing::Test {
 protected:
  testing::TemporaryFolder folder_;
};

TEST_F(SchemaSourceTest, AFileIsReadAndNamed) {
  const std::string path = folder_.Write("own.xsd", "<xs:schema/>");
  const SchemaSource source(path);
  EXPECT_FALSE(source.IsBuiltIn());
  EXPECT_EQ(source.File(), path);
  EXPECT_EQ(source.Name(), path);
  EXPECT_EQ(source.Read(), "<xs:schema/>");
}

TEST_F(SchemaSourceTest, TheBuiltInSchemaIsTheShippedOne) {
  const SchemaSource source = SchemaSource::BuiltIn();
  EXPECT_TRUE(source.IsBuiltIn());
  EXPECT_EQ(source.File(), "");
  EXPECT_EQ(source.Name(), "o esquema incluído na biblioteca");
  EXPECT_TRUE(source.Read() == ReadBytes(ZEVO_SCHEMA_FILE));
}

TEST_F(SchemaSourceTest, WithoutASchemaNothingIsFound) {
  EXPECT_ERROR(SchemaSource().Read(), RunTimeError::kFileNotFound, kRunTimeSource);
  EXPECT_THAT(ErrorOf([] { SchemaSource().Read(); }).Description(), HasSubstr("não foi indicado nenhum esquema"));
}

TEST_F(SchemaSourceTest, WhatIsNoFileIsRefusedAtOnce) {
  const std::string pipe = folder_.Path("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  for (const std::string& name : {pipe, folder_.Path(""), std::string("/dev/zero")}) {
    const Error error = ErrorOf([&] { SchemaSource(name).Read(); });
    EXPECT_EQ(error.Number(), static_cast<int32_t>(RunTimeError::kPathFileAccess));
    EXPECT_THAT(error.Description(), HasSubstr(name));
  }
}

TEST_F(SchemaSourceTest, ALargerSchemaIsRefusedByName) {
  const std::string path = folder_.Write("own.xsd", std::string(SchemaSource::kLargest, ' '));
  EXPECT_EQ(SchemaSource(path).Read().size(), SchemaSource::kLargest);
  folder_.Write("own.xsd", std::string(SchemaSource::kLargest + 1, ' '));
  const Error error = ErrorOf([&] { SchemaSource(path).Read(); });
  EXPECT_EQ(error.Number(), XML_ERR_USER_STOP);
  EXPECT_THAT(error.Description(), AllOf(StartsWith(path + ": "), HasSubstr("256 KiB")));
}

}  // namespace
}  // namespace zevo
