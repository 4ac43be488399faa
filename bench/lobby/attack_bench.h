// Players at human speed while 50 addresses attack the lobby in every way that its limits are for.
#pragma once

#include <string>

namespace tarveth {

// Prints for each attack the time that moves take, against the time just before in quiet, and what the
// attack cost.
void MeasureAttacks(const std::string& lobby);

} // namespace tarveth
