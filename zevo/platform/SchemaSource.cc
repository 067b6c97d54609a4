// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/SchemaSource.h>

#include <libxml/xmlerror.h>
#include <zevo/Error.h>
#include <zevo/platform/BuiltInSchema.h>
#include <zevo/platform/File.h>
#include <zevo/platform/XmlProblem.h>

namespace zevo {

SchemaSource SchemaSource::BuiltIn() {
  SchemaSource source;
  source.built_in_ = true;
  return source;
}

SchemaSource SchemaSource::Held() const {
  SchemaSource held = *this;
  held.bytes_ = Read();
  return held;
}

std::string_view SchemaSource::Name() const {
  if (built_in_) return "o esquema incluído na biblioteca";
  return file_;
}

std::string SchemaSource::Read() const {
  if (bytes_) return *bytes_;
  if (built_in_) return std::string(BuiltInSchema());
  if (file_.empty()) throw MakeRunTimeError(RunTimeError::kFileNotFound, "não foi indicado nenhum esquema");
  InputFile input(file_, InputFile::Kind::kRegular);
  std::string bytes(kLargest + 1, '\0');
  bytes.resize(input.Read(bytes.data(), bytes.size()));
  if (bytes.size() > kLargest) {
    const XmlProblem too_large{.number = XML_ERR_USER_STOP,
                               .reason = std::string(Name()).append(": O esquema tem mais de 256 KiB"),
                               .fault = XmlProblem::Fault::kSchema};
    throw AsError(too_large, {});
  }
  return bytes;
}

}  // namespace zevo
