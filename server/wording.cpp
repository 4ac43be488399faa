#include "server/wording.h"

#include "net/wire/modPARSER.h"
#include "net/wire/nickname.h"
#include "net/wire/plaintext.h"

namespace tarveth {

std::string SignedSentence(std::string_view sentence, std::string_view sender) {
    std::string line = BalancedLine(sentence);
    const bool named = FoldCase(line).find(FoldCase(sender)) != std::string::npos;
    if (named && !LooksLikeConfirmation(line))
        return line;
    return std::string(sender) + ": " + std::string(TrimBlanks(line));
}

} // namespace tarveth
