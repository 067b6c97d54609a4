// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_LANGUAGE_H_
#define ZEVO_MODEL_LANGUAGE_H_

namespace zevo {

/// The languages of sentences for people.
enum class Language { kPortuguese, kEnglish };

}  // namespace zevo

#endif  // ZEVO_MODEL_LANGUAGE_H_
