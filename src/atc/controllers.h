// Air traffic control.
#pragma once

void handle_plan();         // progress of the user's flight plan
void handle_vectors();      // controller vectors
void LSO_respond();         // carrier approach calls
int atc_is_talking();       // a flight plan or vectors are active
int draw_atc_menu();        // their menu over the picture; 1 while it is open
void clear_atc_and_plan();  // for a new flight
