// What the menus ask the program: which entries are lit, marked, and do something.
#pragma once

// Check marks and entries without effect come from the program's state.
void menus_ask_program();
