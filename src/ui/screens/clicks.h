// What the window layer shows over every frame, and where clicks go.
#pragma once

// Menus, help box and cursor; last before the swap.
void overlay_draw();
// The mouse has moved while a menu is open.
void menus_follow_mouse();
// Since the last call, has there been a click to be heard? Menus and closing windows take a click, but not its sound.
int take_click_sound();
void reset_clicks();
