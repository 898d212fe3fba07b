// What the menus ask the program: which entries are lit, marked, and do something.
#pragma once

// Check marks, entries without effect, and identifiers of places come from the program's state.
void menus_ask_program();
