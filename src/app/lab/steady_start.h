// A flight that begins in the air begins trimmed.
#pragma once

// The user's aircraft, just placed in the air, in steady flight from here on with the hands off: level, or
// gliding where it has no engine. It keeps its place, heading and load; where no steady flight is found it
// stays as it was. The speed of the start is tried first, and with any_speed, if that one cannot be flown,
// some of the aircraft's own. True when one was found.
bool start_steady(bool any_speed = true);
