// Lines, boxes, circles, quads and clips, in virtual units of the open window: all add win_x and win_y.
// Role: each sets exactly the GL switches it needs. Colours are rows of the table.
#pragma once

void OGL_line(int color, float alpha, float x1, float y1, float x2, float y2);
void OGL_fillrect(int color, float alpha, float x, float y, float dx, float dy);
void OGL_framerect(int color, float alpha, float x, float y, float dx, float dy);
void OGL_fillcircle(int color, float alpha, float x, float y, float radius);
void OGL_framecircle(int color, float alpha, float x, float y, float radius);
// From angle to angle, degrees clockwise from up.
void OGL_arc(int color, float alpha, float x, float y, float radius, float from, float to);
// Darkens what is behind.
void OGL_grayrect(float x1, float y1, float x2, float y2, float rat);

struct quad_corner {
    float x, y, s, t;
};
// A textured quad, corners clockwise; tex 0 leaves what is bound. alB is an al_ value of OGL_setstate.
void OGL_2dquad(int tex, int col, float alp, const quad_corner& c1, const quad_corner& c2,
                const quad_corner& c3, const quad_corner& c4, int num_tex, int alB);
// The same for a rectangle of the interface image or any other, s and t in pixels of the whole texture.
void OGL_piece(int tex, int col, float alp, float x1, float y1, float x2, float y2, float s1, float t1,
               float s2, float t2);

// In world coordinates.
struct point3 {
    float x, y, z;
};
void OGL_3dline(int color, float alpha, const point3& a, const point3& b);
void OGL_3dquad(int color, float alpha, const point3& a, const point3& b, const point3& c, const point3& d);
void OGL_3dquad_st(int tex, int color, float alpha, const point3 (&corner)[4], const float (&st)[4][2]);
void OGL_cube(int color, float alpha, const point3& middle, float half);
// Flat, facing up.
void OGL_disc(int color, float alpha, const point3& middle, float radius);

// Clips to a box of window coordinates; a box without extent is fatal.
void OGL_scissors(float x, float y, float dx, float dy);
void OGL_scissors_end();
// White, then the picture is shown.
void OGL_sbuf();
