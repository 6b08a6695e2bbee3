// The boost that each load stands for on the engine described in the settings. Display only.
#pragma once

#include <cstdint>

// The boost of a TP value in kg/cm2 on this engine, each step in single precision. Zero cylinders
// or injector size fail with divisionByZero.
float boostFromTp(std::int32_t tp);

// Rewrites the boost row of both TP grids from their TP values. Any failure ends it silently.
void recalculateBoost();

// The menu command.
void TP_BST_RECAL();
