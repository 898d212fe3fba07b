// Lines that hold the aircraft or that it carries: tow, winch, slung load with its crate.
#pragma once

void draw_lines();
