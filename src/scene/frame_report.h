// Counters of the drawing, on the screen and in "Frames.csv" of the working folder, while mnw.track_cpu is
// set.
#pragma once

// Ends the frame that was counted. Costs nothing to speak of while it is off.
void frame_report_draw();
void reset_frame_report();
