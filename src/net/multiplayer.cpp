// Other users in the same sky.
#include "net/multiplayer.h"

#include "core/records/flt.h"
#include "core/records/mnw.h"
#include "core/records/net.h"

int has_multiplayer() {
    constexpr float silent = 30.0f;  // s
    for (int slot = ip_mp_first; slot <= ip_mp_last; ++slot)
        if (net.use_ip[slot] && mnw.real_time - flt[slot + 1].last_time_rcvd < silent) return 1;
    return 0;
}
