// What a client, or all clients of one address together, may still do: one token bucket for each limited act.
#pragma once

#include "server/Bucket.h"

namespace tarveth {

struct Allowances {
    Bucket chatLines;
    Bucket chatCharacters;
    Bucket messages;
    Bucket renames;
    Bucket invitations;
    Bucket uselessBytes;
    Bucket offences; // messages and lines that were dropped, and pauses because of too many useless bytes
};

} // namespace tarveth
