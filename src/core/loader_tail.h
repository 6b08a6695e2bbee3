// What every loader ends in.
#pragma once

// Title bar, whether the address map fits, all maps, parameters, layout, boost. A parameter outside
// the image fails with badSubscript and ends the tail there; repainting goes on again in any case.
void loaderTail();
