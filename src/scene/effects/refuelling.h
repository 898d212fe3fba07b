#pragma once
void refuelling_step(); void draw_refuelling();
