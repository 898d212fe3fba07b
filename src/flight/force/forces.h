// Sums of force and moment on an aircraft.
// Aircraft axes: fside right, fnrml up, faxil aft, at X right, Y up, Z aft, m. L, M, N about z, x, y.
#pragma once

// Adds a force given in path axes (drag, side, lift against the flow at the aircraft's centre) to the
// aerodynamic sums of slot 0. With en and el both 0 or more it is first kept in force_XYZ, in path axes.
void addFaero(float faxil_path, float fside_path, float fnrml_path, float X, float Y, float Z, int en, int el);

// Add a force along one aircraft axis of slot w to the gear or the propulsive sums.
void addFagear(int w, float faxil, float X, float Y);
void addFngear(int w, float fnrml, float X, float Z);
void addFsgear(int w, float fside, float Y, float Z);
void addFaprop(int w, float faxil, float X, float Y);
void addFnprop(int w, float fnrml, float X, float Z);
void addFsprop(int w, float fside, float Y, float Z);

// Adds to a velocity of the air the part that comes from the rotation of slot 0, at a point in
// aircraft axes.
void inc_v(float* vx, float* vy, float* vz, float x, float y, float z);
