// The picture of the TP curve in plain numbers: where a point of the scale stands on the canvas.
// One TP unit is two pixels, one step of the scale twenty.
#pragma once

#include <cstdint>

// The x of point `point`, counted from 1.
constexpr int tpPointX(int point) { return point * 20 + 20; }
// The y of a TP value, limited to 32 bits, and the value that a y stands for.
std::int32_t tpPointY(std::int32_t tp);
double tpOfPointY(std::int32_t y);

// The buffer's limits: a point is raised to TP 150 at most and lowered to TP -105.
std::int32_t raisedTpPoint(std::int32_t y);
std::int32_t loweredTpPoint(std::int32_t y);
