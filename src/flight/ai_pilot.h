// AI pilot of the other slots.
#pragma once

void update_with_AI(int p);
