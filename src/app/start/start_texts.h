// What the user is told of a start: how an exercise goes, and why one cannot be had.
#pragma once

// Explains the exercise of a start_code; silent for a start that is none.
void explain_exercise(int code);
// The start of this code cannot be carried out.
void tell_refusal(int code);
// The fire is there, the water to drop on it is not.
void warn_of_no_water();
