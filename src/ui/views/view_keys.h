// The keys that move a view or a map.
#pragma once

// An arrow or zoom key without shift, and whether it had shift, which makes it ten times as strong.
struct view_key {
    int key;
    float turbo;
};
view_key view_key_of(int poker);
