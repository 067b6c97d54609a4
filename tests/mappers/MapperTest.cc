// SPDX-License-Identifier: Apache-2.0
#include "tests/mappers/MapperTest.h"

#include <zevo/model/PropertyWalk.h>

#include <algorithm>
#include <type_traits>
#include <variant>

#include "tests/support/RecordValues.h"

namespace zevo::testing {
namespace {

std::string File(std::string_view content) {
  return std::string(
             "<?xml version=\"1.0\" encoding=\"windows-1252\"?>"
             "<AuditFile xmlns=\"urn:OECD:StandardAuditFile-Tax:PT_1.01_01\">")
      .append(content)
      .append("</AuditFile>");
}

}  // namespace

std::string OneLine(std::string_view xml) {
  std::string line;
  while (!xml.empty()) {
    xml.remove_prefix(std::min(xml.find_first_not_of(" \n"), xml.size()));
    const std::string_view piece = xml.substr(0, xml.find('\n'));
    line += piece;
    xml.remove_prefix(piece.size());
  }
  return line;
}

std::string Describe(const Record& record) {
  std::string text;
  WalkProperties(record, [&text](std::string_view path, const Property& property, const Record& owner) {
    if (property.type == PropertyType::kCollection || property.type == PropertyType::kRecord) return;
    const PropertyValue value = property.get(owner);
    const bool none = std::visit([](const auto& held) { return held == std::remove_cvref_t<decltype(held)>(); }, value);
    if (!none) text.append(path).append("=").append(TextOf(value)).append("\n");
  });
  return text;
}

MapperTest::MapperTest() {
  helper_.set_AuditFileName(folder_.Path("written.xml"));
  helper_.CreateFile();
}

void MapperTest::Begin(std::string_view content) {
  folder_.Write("written.xml", File(content));
  helper_.OpenFile();
}

std::string MapperTest::Written() {
  helper_.SaveFile();
  const std::string bytes = ReadBytes(helper_.AuditFileName());
  const size_t start = bytes.find('>', bytes.find("<AuditFile")) + 1;
  const size_t end = bytes.find("</AuditFile>");
  return end == std::string::npos ? std::string() : bytes.substr(start, end - start);
}

IDALReader& MapperTest::Reading(std::string_view content) {
  reader_ = std::make_unique<DOMDALReader>();
  reader_->set_AuditFileName(folder_.Write("read.xml", File(content)));
  reader_->OpenFile();
  return *reader_;
}

}  // namespace zevo::testing
