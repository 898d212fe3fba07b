// Commands and keys of the user.
#pragma once

// Commands by number, as far as the program has them.
enum command_code : int { cmd_quit = 308, cmd_trace = 1803 };

// Does this command do anything?
int command_exists(int item);

// While the mouse is the stick: the middle of the screen is neutral, pulling it down lifts the nose.
void mouse_flies();
