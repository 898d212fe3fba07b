// Boxes with a front and a back.
#include "scene/effects/person.h"

#include <GL/gl.h>

#include "core/math/num.h"
#include "draw/gl/colours.h"
#include "draw/images/tman.h"

namespace {
// Half width, half depth, foot and head of a box, m; of the picture: half width of s around the middle of its
// half, and t at both ends.
struct part_struct {
    float x, z, low, high, s, t_low, t_high;
};
constexpr part_struct parts[] = {{0.20f, 0.13f, 0.0f, 0.86f, 0.20f, 0.0f, 0.48f},
                                 {0.25f, 0.14f, 0.86f, 1.46f, 0.22f, 0.48f, 0.80f},
                                 {0.10f, 0.11f, 1.46f, 1.75f, 0.10f, 0.81f, 1.0f}};
constexpr float jackets[4][3] = {{0.85f, 0.25f, 0.2f}, {0.25f, 0.45f, 0.8f}, {0.95f, 0.8f, 0.25f}, {0.3f, 0.65f, 0.35f}};

// A side between two corners of the box, seen from outside.
void send_side(const part_struct& p, const float (&a)[2], const float (&b)[2], float s1, float s2) {
    glNormal3f(0.5f * (a[0] + b[0]), 0.0f, 0.5f * (a[1] + b[1]));
    glTexCoord2f(s1, p.t_low), glVertex3f(a[0] * p.x, p.low, a[1] * p.z);
    glTexCoord2f(s1, p.t_high), glVertex3f(a[0] * p.x, p.high, a[1] * p.z);
    glTexCoord2f(s2, p.t_high), glVertex3f(b[0] * p.x, p.high, b[1] * p.z);
    glTexCoord2f(s2, p.t_low), glVertex3f(b[0] * p.x, p.low, b[1] * p.z);
}

void send_part(const part_struct& p) {
    constexpr float front = 0.25f, back = 0.75f;
    constexpr float corner[4][2] = {{1, -1}, {-1, -1}, {-1, 1}, {1, 1}};  // the front looks along -z
    send_side(p, corner[0], corner[1], front - p.s, front + p.s);
    send_side(p, corner[1], corner[2], back + 0.6f * p.s, back + p.s);
    send_side(p, corner[2], corner[3], back - p.s, back + p.s);
    send_side(p, corner[3], corner[0], back - p.s, back - 0.6f * p.s);
}
}  // namespace

void OGL_person(float x, float y, float z, float psi, int number) {
    const float* const jacket = jackets[intlim(number, 1, 4) - 1];
    tman.bind_ref(tex_person, 0, combine_default);
    glPushMatrix();
    glTranslatef(x, y, z);
    glRotatef(psi, 0.0f, -1.0f, 0.0f);
    glBegin(GL_QUADS);
    for (const part_struct& part : parts) {
        const bool wears_jacket = &part == parts + 1;
        OGL_setcolorRGBA(wears_jacket ? jacket[0] : 1.0f, wears_jacket ? jacket[1] : 1.0f,
                         wears_jacket ? jacket[2] : 1.0f, 1.0f, 1);
        send_part(part);
    }
    glEnd();
    OGL_setcolorRGBA(1.0f, 1.0f, 1.0f, 1.0f, 1);
    glPopMatrix();
}
