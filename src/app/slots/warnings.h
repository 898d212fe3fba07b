// What the user is warned of, by voice and lamp.
#pragma once

// Warnings of slot 0.
void warn_the_pilot();
void reset_warnings();  // forgets what was heard
