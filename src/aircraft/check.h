// Refuses designs that cannot fly.
// Role: runs behind every successful read, in the units of the file.
#pragma once

// Tests the design in slot p and reports the first fault: 1 sound, 0 faulty. For the user's own
// aircraft a fault is fatal; a stranger's file in another slot is a warning, once per file, and is
// remembered (acf_was_faulty).
int ACF_check(int p, int is_batch);
