// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_WORDS_FILEWORDS_H_
#define ZEVO_TOOLS_SAFT_WORDS_FILEWORDS_H_

#include "tools/saft/words/Text.h"

/// What a name that was given leads to, where that is in the way. The name stands in front.
namespace zevo::saft::words {

inline constexpr Text<> kNoSuchFile{"não existe", "no such file"};
inline constexpr Text<> kIsFolder{"é uma pasta", "is a folder"};
inline constexpr Text<> kIsPipe{"é um pipe", "is a pipe"};
inline constexpr Text<> kIsSocket{"é um socket", "is a socket"};
inline constexpr Text<> kIsDevice{"é um dispositivo", "is a device"};
inline constexpr Text<> kLeadsNowhere{"é uma ligação que não leva a lado nenhum", "is a link that leads nowhere"};
inline constexpr Text<> kInputClosed{"a entrada padrão está fechada", "standard input is closed"};
inline constexpr Text<> kChanged{"foi alterado enquanto era lido; execute o comando outra vez",
                                 "was changed while it was read; run the command again"};
inline constexpr Text<> kRemoved{"foi apagado enquanto era lido", "was removed while it was read"};
inline constexpr Text<> kFolderInUse{"é uma pasta em uso; indique uma nova", "is a folder in use; name a new one"};
inline constexpr Text<> kIsThere{"já existe", "is there already"};
inline constexpr Text<> kIsThereAndNoFolder{"já existe e não é uma pasta", "is there already and is no folder"};
inline constexpr Text<> kIsThereAndNotEmpty{"já existe e não está vazia", "is there already and is not empty"};
inline constexpr Text<> kNamesNoFile{"não indica nenhum ficheiro", "names no file"};
inline constexpr Text<> kBuiltInSchema{"esquema do programa", "built-in schema"};

}  // namespace zevo::saft::words

#endif  // ZEVO_TOOLS_SAFT_WORDS_FILEWORDS_H_
