// The network side while no client window is open: nobody listens.
#pragma once

#include "engine/ports.h"

namespace tarveth {

class Offline : public NetworkPort {
public:
    void SendGameMessage(std::string_view) override {}
    void SendBoard() override {}
    void AnnounceVictory(bool) override {}
    void ShowNotice(std::string_view) override {}
};

} // namespace tarveth
