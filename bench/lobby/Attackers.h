// Clients of 50 addresses that attack a lobby, in a process of their own.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace tarveth {

// What each connection of an attack does.
struct Attack {
    std::string name;
    std::string greeting;       // sent once; "%" stands for a number of the connection
    std::string flood;          // sent again and again
    int floods = 0;             // after which the connection is closed and another one opened; 0 for never
    bool reads = true;          // whether it reads what it is sent
    std::size_t perAddress = 8; // connections at the same time
};

class Attackers {
public:
    // Begins the attack, until the object goes.
    // network: the third number of the addresses, so that each attack has addresses of its own.
    Attackers(int port, const Attack& attack, unsigned network);
    ~Attackers();
    Attackers(const Attackers&) = delete;
    Attackers& operator=(const Attackers&) = delete;

private:
    pid_t process_;
};

} // namespace tarveth
