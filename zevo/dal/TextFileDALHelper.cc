// SPDX-License-Identifier: Apache-2.0
#include <zevo/dal/TextFileDALHelper.h>

#include <zevo/Utf8.h>
#include <zevo/dal/LoadDocument.h>
#include <zevo/platform/Text.h>

#include <algorithm>
#include <limits>

namespace zevo {
namespace {

constexpr std::string_view kRoot = "AuditFile";

// Names of letters that Windows-1252 has: a name cannot hold references.
bool IsNameStart(char32_t c) {
  if (c < 0x80) return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
  return c >= 0xC0 && c <= 0xFF && c != 0xD7 && c != 0xF7;
}

bool IsElementName(std::string_view name) {
  if (name.empty() || !IsNameStart(TakeCharacter(name))) return false;
  while (!name.empty()) {
    const char32_t c = TakeCharacter(name);
    if (!IsNameStart(c) && !(c >= '0' && c <= '9') && c != '-' && c != '.' && c != 0xB7) return false;
  }
  return true;
}

void RequireElementName(std::string_view name) {
  if (!IsElementName(name)) ThrowNoXmlText(name);
}

}  // namespace

TextFileDALHelper::TextFileDALHelper() : handles_(NewDocument()) { handles_->AppendElement({}, kRoot); }

TextFileDALHelper::~TextFileDALHelper() {
  try {
    TextFileDALHelper::CloseFile();
  } catch (const std::exception&) {
    // A destructor cannot report it.
  }
}

Element TextFileDALHelper::HandleFor(std::string_view name) {
  const Element root = handles_->Root();
  if (name == kRoot) return root;
  const Element known = handles_->FirstChild(root, name);
  return known ? known : handles_->AppendElement(root, name);
}

Element TextFileDALHelper::HandleFor(ElementName name) {
  Element& known = known_handles_[name.Number()];
  if (!known) known = HandleFor(name.Text());
  return known;
}

void TextFileDALHelper::CreateFile() {
  open_.clear();
  try {
    stream_.CreateStream();
    stream_.WriteChars(R"(<?xml version="1.0" encoding="windows-1252"?>)");
    stream_.WriteChars("<AuditFile xmlns=\"");
    stream_.WriteChars(kNamespace);
    stream_.WriteChars(R"(" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance">)");
    open_.push_back(handles_->Root());
  } catch (...) {
    open_.clear();
    // Without its root the file is of no use, and the next attempt would fail because it exists.
    stream_.DeleteStream();
    throw;
  }
}

void TextFileDALHelper::CloseFile() {
  if (!IsOpen()) return;
  try {
    CloseAll();
    stream_.Flush();
  } catch (...) {
    open_.clear();
    stream_.CloseStream();
    throw;
  }
  stream_.CloseStream();
}

// Mappers ask for what is open before they write anything, so a write that failed is reported here.
Element TextFileDALHelper::GetElement(ElementName name, Element, std::string_view) {
  stream_.RequireWhole();
  const auto open = std::ranges::find(open_, name.Number(), [](Element element) { return element.node()->Name(); });
  return open == open_.end() ? Element() : *open;
}

Element TextFileDALHelper::CreateElement(ElementName name, std::string_view value, Element parent, bool required) {
  if (value.empty() && !required) return Element();
  if (!parent) parent = handles_->Root();
  const bool goes_inside = !open_.empty() && open_.back() == parent;
  if (goes_inside && stream_.WritePlainElement(handles_->Names(), name.Number(), value)) return Element();
  return WriteAnyElement(name, value, parent);
}

// Writes what may need more than to be copied between tags.
Element TextFileDALHelper::WriteAnyElement(ElementName name, std::string_view value, Element parent) {
  RequireXmlText(name, value);
  CloseToParent(parent);
  if (value.empty()) return Begin(HandleFor(name));
  const NameTable& names = handles_->Names();
  stream_.WriteStartTag(names, name.Number());
  stream_.WriteChars(value, Escapes::kMarkupAndQuote);
  stream_.WriteEndTag(names, name.Number());
  return Element();
}

void TextFileDALHelper::EndElement(ElementName name) {
  const Element element = GetElement(name, {}, {});
  if (!element) return;
  while (CloseInnermost() != element) {
  }
}

void TextFileDALHelper::UpdateElement(ElementName name, std::string_view value, Element parent, bool required) {
  CreateElement(name, value, parent, required);
}

void TextFileDALHelper::BeginElement(std::string_view name) {
  RequireElementName(name);
  Begin(HandleFor(name));
}

bool TextFileDALHelper::EndInnermost() {
  stream_.RequireWhole();
  if (open_.size() < 2) return false;
  CloseInnermost();
  return true;
}

void TextFileDALHelper::WriteElements(std::span<const ScannedElement> elements) {
  for (const ScannedElement& element : elements) {
    RequireElementName(element.name);
    RequireXmlText(element.name, element.text);
  }
  inside_.clear();
  const auto endFrom = [this](int depth) {
    for (; !inside_.empty() && inside_.back()->depth >= depth; inside_.pop_back()) {
      stream_.WriteEndTag(inside_.back()->name);
    }
  };
  for (const ScannedElement& element : elements) {
    endFrom(element.depth);
    inside_.push_back(&element);
    stream_.WriteStartTag(element.name);
    if (!element.text.empty()) stream_.WriteChars(element.text, Escapes::kMarkupQuoteAndReturn);
  }
  endFrom(std::numeric_limits<int>::min());
}

Element TextFileDALHelper::Begin(Element handle) {
  // All that may fail comes before the tag is written: every tag in the file must be in open_, to be closed.
  open_.reserve(open_.size() + 1);
  stream_.WriteStartTag(handles_->Names(), handle.node()->Name());
  open_.push_back(handle);
  return handle;
}

Element TextFileDALHelper::CloseInnermost() {
  const Element innermost = open_.back();
  open_.pop_back();
  stream_.WriteEndTag(handles_->Names(), innermost.node()->Name());
  return innermost;
}

void TextFileDALHelper::CloseToParent(Element parent) {
  while (!open_.empty() && open_.back() != parent) CloseInnermost();
}

void TextFileDALHelper::CloseAll() {
  while (!open_.empty()) CloseInnermost();
}

}  // namespace zevo
