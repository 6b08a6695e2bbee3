// The airflow map as a curve below its grid: read-only, redrawn from the grid's cells.
#pragma once

#include "controls/grid.h"

// `bytes` is the airflow map's length; the grid's row 1 holds its words.
void drawAirflowView(Grid& grid, int bytes);
