// Preferences, situations and replays.
#pragma once
#include <string>

// prf 0 resolution, 1 main preferences, 2 situation, 3 replay; opr 6 reads, 7 writes. Non-zero on success.
int handle_prefs(int prf, int opr, const std::string& stl_path);
