// Times of a frame's parts.
#include "draw/gl/frame_counts.h"

#include <GL/gl.h>

#include "core/program/seams.h"

void end_section(frame_section which) {
    static long long last = 0;
    if (!sections_timed) {
        last = 0;
        return;
    }
    glFinish();
    const long long now = seam.epoch_microsec();
    if (last != 0) section_ms[which] += 0.001f * static_cast<float>(now - last);
    last = now;
}
