#include "net/handshake.h"

#include "net/wire/messagewriter.h"
#include "text/versionnumber.h"
#include "version.h"

namespace tarveth {

namespace {

constexpr int kOldestServer = 10037; // 1.0.37

} // namespace

bool Handshake::Answer(std::string_view serverVersion) {
    if (answered_)
        return true;
    if (VersionNumber(serverVersion, VersionForm::Leading) < kOldestServer)
        return false;
    connection_.SendMessage(WriteMessage("clientver", {kVersion}));
    connection_.SendMessage(WriteMessage("nick", {nicks_.mine}));
    users_.Clear();
    connection_.SendMessage(WriteMessage("sendnicks", {}));
    answered_ = true;
    return true;
}

} // namespace tarveth
