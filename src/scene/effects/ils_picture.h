#pragma once
void draw_ils_picture();
