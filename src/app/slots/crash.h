// When the flight of the user ends in a crash.
#pragma once

void crash_test();
