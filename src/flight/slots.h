// Aircraft slots that others fly: by network messages, or out of the recording.
#pragma once

// Dead reckoning between network messages.
void update_with_net(int p);

// Slot 0 from the recording; moves totl_time by the transport mode.
void update_with_replay();
