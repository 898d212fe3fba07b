// Other users in the same sky. The aircraft of the peer in an address slot flies in the slot of aircraft
// behind it.
#pragma once

// 1 while the aircraft of a peer whose address is in use was heard of in the last 30 seconds.
int has_multiplayer();
