// The shape of an aircraft as its parts tell it, without paint, but for its surfaces: bodies as tubes, legs,
// wheels, discs. Role: what is seen from outside. Emits vertices with unit normals; state, colour and place
// are the caller's.
#pragma once

// What stays as it is for as long as shape_now does; fit for a display list. Aircraft axes, metres from the
// reference point.
void emit_airframe(int p);
// Legs and wheels as they stand now; nothing of those that are in.
void emit_legs(int p);
// Discs of propellers and rotors as they are tilted now.
void emit_discs(int p);
// Changes with what emit_airframe gives: with a body that comes off.
unsigned long long shape_now(int p);
