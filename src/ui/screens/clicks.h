// What the window layer shows over every frame, and where clicks go.
#pragma once

// Menus, help box and cursor; last before the swap.
void overlay_draw();
// The mouse has moved while a menu is open.
void menus_follow_mouse();
