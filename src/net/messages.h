// UDP messages between machines.
#pragma once

void NET_re_init();   // opens the net on the first call, refreshes the parsed addresses on each
void NET_close();
void NET_listen();    // handles all waiting messages
void NET_send(const char* label, const char* data_in, int data_len, int ip_index_to);
int NET_is_up();

// Payloads of the heartbeat, filled afresh before each send.
void NET_send_stat(int ip_index_to);
void NET_send_vehn(int p, int ip_index_to);
void NET_send_snap(int p, int ip_index_to);
// The airport that was chosen, to the machine that this instructor's station serves.
void send_airport_to_instructor(int type_start);
