#include "net/modTools.h"

namespace tarveth {

modTools::modTools(Game& game, NetGame& net, modMAIN& main, MainWindowPort& window, OpponentPort& opponent)
    : game_(game), net_(net), main_(main), window_(window), opponent_(opponent) {}

void modTools::ParseGameMessages(std::string_view) {}

void modTools::SendBoard() {}

void modTools::SetLocalBlue() {
    net_.PlayingBlue = true;
}

void modTools::SetLocalRed() {
    net_.PlayingBlue = false;
}

void modTools::SwapSides() {
    if (net_.PlayingBlue)
        SetLocalRed();
    else
        SetLocalBlue();
}

void modTools::EndLink() {}

} // namespace tarveth
