// The recent address maps: up to nine in the per-user store, the one loaded last first.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

constexpr std::size_t recentMapCount = 9;

// A command has put `path` in force.
void addRecentMap(const std::string& path);
std::vector<std::string> recentMaps();
void clearRecentMaps();
