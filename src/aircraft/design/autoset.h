// Fields of the aircraft record that follow from what the designer entered.
// Role: runs behind every read, before the model is derived; all in the units of the file.
#pragma once

// Recomputes the derived fields of slot p. Takes any record, even one of arbitrary bytes.
void ACF_autoset(int p);

// Copies surface e1 to e2, mirrored to the other side if opp_side.
void copy_foil(int p, int e1, int e2, int opp_side);

// Marks the surfaces whose control acts the other way because they lie ahead of the centre of gravity.
// Needs delta_fac, so it is asked for again once that is derived; any unit of length will do.
void set_rev_con(int p);
