// Air traffic control.
#pragma once

void handle_plan();         // progress of the user's flight plan
void handle_vectors();      // controller vectors
void LSO_respond();         // carrier approach calls
int atc_is_talking();       // a flight plan or vectors are active
void clear_atc_and_plan();  // for a new flight
