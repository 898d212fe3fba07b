// Logbook.
#pragma once

void logbook_read();
void logbook_entry();  // a new line for a new flight
