// The colours of the interface: dark slate with light upper edges, cyan for what is set, amber for what is
// said.
#pragma once
#include "canvas.h"

namespace theme {
constexpr rgba ground = hex(0x171d24);  // behind windows; row 28
constexpr rgba body = hex(0x252d37);    // of windows
constexpr rgba body_low = hex(0x212831);
constexpr rgba sunk = hex(0x12171d);  // fields and grooves
constexpr rgba panel = hex(0x1e252e);
constexpr rgba outline = hex(0x0a0d11);
constexpr rgba key_head = hex(0x56687a), key_foot = hex(0x38454f);
constexpr rgba key_down_head = hex(0x222b34), key_down_foot = hex(0x303c48);
constexpr rgba light = hex(0xdcebf8);  // upper edges, at low alpha
constexpr rgba sign = hex(0xe6eef6);   // arrows, marks
constexpr rgba accent = hex(0x3fb6ee), accent_deep = hex(0x1b6fa8), accent_light = hex(0x9adcff);
constexpr rgba amber = hex(0xffc15e);
constexpr rgba alarm_head = hex(0xd8574c), alarm_foot = hex(0x9c2f2b);

// Rows 28 to 32 and 34 to 41 of the colour table.
struct row_colour {
    int row;
    rgba colour;
};
constexpr row_colour rows[] = {
    {28, ground},         // background of windows
    {29, hex(0x55626f)},  // light side of separators
    {30, hex(0x36424e)},  // grid lines in panels
    {31, hex(0x0c1014)},  // dark side of separators
    {32, hex(0xe4ebf2)},  // menus
    {34, hex(0xf4f8fc)},  // window titles
    {35, hex(0xaab7c4)},  // tabs
    {36, hex(0xffffff)},  // the chosen tab
    {37, hex(0xd3dce5)},  // labels of widgets, text in panels
    {38, hex(0x8fe3ff)},  // digits and typed text
    {39, hex(0xffb84d)},  // what needs attention
    {40, hex(0xffe9b5)},  // help, alerts, text over the world, a held thumb
    {41, hex(0x59c2f5)},  // highlights
};
}  // namespace theme
