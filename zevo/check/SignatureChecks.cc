// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/SignatureChecks.h>

#include <algorithm>
#include <iterator>

namespace zevo {
namespace {

// Programs have few. Those beyond count as without a version, so that a file cannot make many.
constexpr size_t kMostVersions = 64;

}  // namespace

// Null, and that is kept, where the host has not given it.
const SignatureVerifier* SignatureChecks::KeyOf(const HashChain::Link& link) {
  const SignatureVerifier* const key = keys_.Of(link.version);
  if (key == nullptr && link.version && (!without_key_ || link.document < without_key_->document)) {
    without_key_ = {link.document, *link.version, link.signature};
  }
  return key;
}

SignatureChecks::OfVersion& SignatureChecks::VersionOf(const HashChain::Link& link) {
  const auto find = [&](const std::optional<int32_t>& version) {
    return std::ranges::find(versions_, version, &OfVersion::version);
  };
  if (const auto found = find(link.version); found != versions_.end()) return *found;
  std::optional<int32_t> version = link.version;
  if (versions_.size() >= kMostVersions) {
    version.reset();
    if (const auto others = find(version); others != versions_.end()) return *others;
  }
  versions_.push_back({.version = version});
  return versions_.back();
}

void SignatureChecks::TakeWrong(const HashChain::Link& link) {
  OfVersion& of_version = VersionOf(link);
  of_version.wrong.push_back(link.document);
  auto& kept = of_version.kept;
  const bool full = most_kept_ > 0 && kept.size() == most_kept_;
  if (full && std::prev(kept.end())->first < link.document) return;
  if (full) kept.erase(std::prev(kept.end()));
  kept.emplace(link.document, Kept{link.signature, link.text + link.previous});
}

void SignatureChecks::Take(const HashChain& chain) {
  for (const HashChain::Link& link : chain.Ready()) {
    const SignatureVerifier* const key = KeyOf(link);
    if (key == nullptr) continue;
    if (key->Verifies(link.text + link.previous, link.signature) ||
        (link.after_unsigned && key->Verifies(link.text, link.signature))) {
      ++VersionOf(link).right;
    } else {
      TakeWrong(link);
    }
  }
}

// The first document of a series in the file may be the first of all, and then its signature has no Hash before it.
void SignatureChecks::End(const HashChain& chain, const DocumentTable& documents) {
  for (const uint32_t document : chain.OpenDocuments()) {
    const HashChain::Link link = chain.OpenLink(document);
    const SignatureVerifier* const key = KeyOf(link);
    if (key == nullptr) continue;
    const bool lowest = documents.AllSeries()[documents[document].Series()].lowest == document;
    if (lowest && key->Verifies(link.text, link.signature)) {
      ++VersionOf(link).right;
    } else if (documents.NumberOf(documents[document]) <= 1) {
      TakeWrong(link);
    } else {
      unjudged_.push_back(document);
    }
  }
}

std::vector<SignatureChecks::Told> SignatureChecks::WrongOnes(const DocumentTable& documents) const {
  struct Wrong {
    uint32_t document;
    const OfVersion* version;
  };
  std::vector<Wrong> wrong;
  for (const OfVersion& version : versions_) {
    if (version.IsOtherKey()) continue;
    for (const uint32_t document : version.wrong) wrong.push_back({document, &version});
  }
  std::ranges::sort(
      wrong, [&](const Wrong& left, const Wrong& right) { return documents.IsBefore(left.document, right.document); });
  std::vector<Told> told;
  constexpr int64_t kNone = -1;
  int64_t next = kNone;  // behind the last one that is told
  for (const auto& [document, version] : wrong) {
    if (document == next) {
      told.back().next_too = true;
      next = kNone;
      continue;
    }
    const auto kept = version->kept.find(document);
    told.push_back({document, false, kept == version->kept.end() ? nullptr : &kept->second});
    const auto neighbour = documents.Neighbour(document, 1);
    next = neighbour ? *neighbour : kNone;
  }
  std::ranges::sort(told, {}, &Told::document);
  return told;
}

}  // namespace zevo
