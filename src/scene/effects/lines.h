#pragma once
void draw_lines();
