// SPDX-License-Identifier: Apache-2.0
#include <zevo/dal/TextStream.h>

#include <zevo/Error.h>

namespace zevo {

TextStream::TextStream() = default;
TextStream::~TextStream() { CloseStream(); }

void TextStream::CreateStream() {
  DeleteStream();
  OpenStream();
}

void TextStream::OpenStream() {
  CloseStream();
  auto output = std::make_unique<OutputFile>(file_name_);
  serializer_ = std::make_unique<Serializer>(*output, Serializer::Encoding::kWindows1252);
  output_ = std::move(output);
}

void TextStream::CloseStream() noexcept {
  if (!IsOpen()) return;
  try {
    serializer_->Flush();
  } catch (const std::exception&) {
    // What cannot be written is lost: owners call Flush first.
  }
  serializer_.reset();
  output_.reset();
}

void TextStream::WriteLine(std::string_view text) {
  WriteChars(text);
  WriteChars("\r\n");
}

void TextStream::WriteChars(std::string_view text, Escapes escapes) { Writer().Write(text, escapes); }

void TextStream::WriteTag(std::string_view start, std::string_view name) {
  Serializer& writer = Writer();
  writer.WriteAscii(start);
  writer.Write(name);
  writer.WriteAscii(">");
}

Serializer& TextStream::Writer() const {
  if (!IsOpen()) throw MakeRunTimeError(RunTimeError::kBadFileName, file_name_);
  return *serializer_;
}

void TextStream::Flush() {
  if (!IsOpen()) return;
  serializer_->Flush();
  output_->Close();
}

void TextStream::DeleteStream() noexcept {
  CloseStream();
  try {
    // A device is not a file to delete.
    if (FileExists(file_name_)) DeleteFile(file_name_);
  } catch (const std::exception&) {
    // The next CreateStream reports what is wrong with the file.
  }
}

void TextStream::RenameStream(std::string_view newName) {
  const std::string name(newName);
  RenameFile(file_name_, name);
  file_name_ = name;
}

}  // namespace zevo
