// What the instruments of slot 0 show, from the true state.
#pragma once

// All of them, once a half step. Stuck and blocked ones hold.
void instrument_step();
void reset_instruments();
