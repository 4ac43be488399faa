// The lasting view of zones: patterns on the ground of the squares, so that the pieces stay whole.
#pragma once

#include "display/pixels.h"
#include "engine/rules/zones.h"

#include <array>

namespace tarveth {

// Draws the zones of both sides (indexed by Side) into the picture of a board whose edge is a multiple of 8:
// lines for a Master's, dots for an Officer's, the two sides slanting either way, with an outline where a
// side's zones end. Only pixels of the squares' own colours that are joined to the edge of the square change,
// since all others are a piece's.
void DrawZones(PixelBuffer& board, const std::array<ZoneMap, 3>& zones, Pixel black, Pixel white);

} // namespace tarveth
