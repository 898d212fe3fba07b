// Network heartbeat: who we are, where we are and what aircraft we fly, a message each twentieth second.
#include "app/slots/heartbeat.h"

#include <stdio.h>
#include <string.h>

#include "core/math/num.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "net/messages.h"

namespace {
struct heartbeat_state {
    int frame_TYPE = 0;                // 0 to 10: which message is next
    int p_index_for_tst = 0;           // address of the next test
    int stat_slot = -1;                // address that got our state last
    int p_index_for_vehn = 0, vehn_slot = -1;  // next aircraft, and the address that gets it
};
heartbeat_state state;

bool drives_others() {
    for (int slot = ip_mp_first; slot <= ip_mon_last; ++slot)
        if (net.use_ip[slot]) return true;
    return net.use_ip[ip_master_ios];
}

// The cycle of addresses that get our state: 0 to 13, 17, and from the start again.
int ret_next_SATE(int slot) {
    if (slot == ip_mon_last) return ip_master_ios;
    return slot >= ip_master_ios || slot < 0 ? 0 : slot + 1;
}

// The next address in use after slot, or -1.
int next_in_use(int slot) {
    constexpr int cycle = 15;
    for (int i = 0; i < cycle; ++i) {
        slot = ret_next_SATE(slot);
        if (net.use_ip[slot]) return slot;
    }
    return -1;
}

void send_test() {
    NET_send("TEST", nullptr, 0, state.p_index_for_tst);
    state.p_index_for_tst = intwrap(state.p_index_for_tst + 1, 0, ip_ios_served);
}

// Probes the last byte of the address range for other machines, one each time.
void send_ping() {
    net.mp_dig[3] = intwrap(net.mp_dig[3] + 1, 0, 255);
    char text[4][4];
    for (int i = 0; i < 4; ++i) snprintf(text[i], sizeof text[i], "%03d", intlim(net.mp_dig[i], 0, 255));
    snprintf(net.their_ip_str[ip_auto_probe], sizeof net.their_ip_str[0], "%s.%s.%s.%s", text[0], text[1],
             text[2], text[3]);
    const unsigned probed = static_cast<unsigned>(net.mp_dig[0] & 255) << 24 | (net.mp_dig[1] & 255) << 16 |
                            (net.mp_dig[2] & 255) << 8 | (net.mp_dig[3] & 255);
    if (probed == static_cast<unsigned>(net.our_ip_int)) return;
    net.use_ip[ip_auto_probe] = 1;
    if (!NET_is_up()) NET_re_init();
    NET_send("PING", nullptr, 0, ip_auto_probe);
}

void send_stat() {
    const int next = next_in_use(state.stat_slot);
    if (next < 0) return;
    state.stat_slot = next;
    NET_send_stat(next);
}

// Aircraft by aircraft; when they wrap the address moves on. Peers get only the user's aircraft.
void send_vehn() {
    int& slot = state.vehn_slot;
    if (slot < 0 || !net.use_ip[slot]) slot = next_in_use(slot);
    if (slot < 0) return;
    const int planes = slot <= ip_mp_last ? 1 : TVPGetNumberPlanesToHandle(stg.num_acf, 0);
    state.p_index_for_vehn = intlim(state.p_index_for_vehn, 0, planes - 1);
    NET_send_vehn(state.p_index_for_vehn, slot);
    if (++state.p_index_for_vehn >= planes) {
        state.p_index_for_vehn = 0;
        slot = next_in_use(slot);
    }
}
}  // namespace

void reset_heartbeat() { state = {}; }

void network_heartbeat() {
    int& frame_TYPE = state.frame_TYPE;
    const bool want_PING = net.auto_set_mp;
    const bool want_STAT = drives_others(), want_VEHN = want_STAT;
    frame_TYPE = intwrap(frame_TYPE + 1, 0, 10);
    if (frame_TYPE == 0 || frame_TYPE == 5) {
        if (want_STAT) send_stat();
    } else if (frame_TYPE == 1) {
        send_test();
    } else if (frame_TYPE % 2) {
        if (want_PING) send_ping();
    } else {
        if (want_VEHN) send_vehn();
    }
}
