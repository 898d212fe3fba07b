// Derivation: slats, and which parts lie in the downwash of which.
#pragma once

// -- slats and wash (downwash.cpp)
void derive_slats(int p);
void derive_downwash(int p);
