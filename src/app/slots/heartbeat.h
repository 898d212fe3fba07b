// The network heartbeat: who is there.
#pragma once

// One step of the network heartbeat.
void network_heartbeat();
void reset_heartbeat();
