#include "net/wire/messagewriter.h"

#include "net/wire/plaintext.h"

namespace tarveth {

std::string WriteMessage(std::string_view name, std::initializer_list<std::string_view> fields) {
    std::string text(name);
    char before = '(';
    for (const std::string_view field : fields) {
        text += before;
        text += BalancedLine(field);
        before = ',';
    }
    return text + (fields.size() == 0 ? "()" : ")");
}

} // namespace tarveth
