// Light on the panel, and the colour of its lit parts.
#pragma once

// With the cockpit's lamps on raises the manual light: white on a panel that has a picture for the night,
// red on one that has none.
void set_lites_for_cockpit();

enum lit_ins_kind : int { lit_by_panel = 0, lit_instruments = 1, lit_hud = 2 };
// Colour of lit parts (col_lit_ins) for a lit_ins_kind; another one is fatal.
void set_lit_ins(int col_type);
