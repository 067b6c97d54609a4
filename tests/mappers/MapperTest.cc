#include "tests/mappers/MapperTest.h"

#include <sstream>
#include <variant>

namespace zevo::testing {
namespace {

std::string File(std::string_view content) {
  return std::string(
             "<?xml version=\"1.0\" encoding=\"windows-1252\"?>"
             "<AuditFile xmlns=\"urn:OECD:StandardAuditFile-Tax:PT_1.01_01\">")
      .append(content)
      .append("</AuditFile>");
}

// The value as text; empty for what counts as no content.
std::string ValueText(const PropertyValue& value) {
  return std::visit(
      [](const auto& held) -> std::string {
        using V = std::remove_cvref_t<decltype(held)>;
        if constexpr (std::is_same_v<V, std::shared_ptr<Record>>) {
          return {};
        } else if constexpr (std::is_same_v<V, std::string>) {
          return held;
        } else {
          if (held == V{}) return {};
          std::ostringstream text;
          if constexpr (std::is_same_v<V, Amount>) {
            text << held.Text();
          } else {
            text << std::boolalpha << held;
          }
          return text.str();
        }
      },
      value);
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

std::string Describe(const Record& record, std::span<const Property> properties, const std::string& prefix) {
  std::string text;
  for (const Property& property : properties) {
    const std::string name = prefix + std::string(property.name);
    if (property.type == PropertyType::kCollection) {
      for (int32_t i = 1; i <= property.count(record); ++i) {
        text += Describe(*property.item(record, i), property.properties(), name + std::to_string(i) + ".");
      }
    } else if (property.type == PropertyType::kRecord) {
      const auto child = std::get<std::shared_ptr<Record>>(property.get(record));
      if (child) text += Describe(*child, property.properties(), name + ".");
    } else if (const std::string value = ValueText(property.get(record)); !value.empty()) {
      text.append(name).append("=").append(value).append("\n");
    }
  }
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
