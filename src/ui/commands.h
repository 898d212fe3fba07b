// Commands and keys of the user.
#pragma once

// Commands by number, as far as the program has them.
enum command_code : int { cmd_quit = 700, cmd_view_first = 1500, cmd_view_last = 1540 };

// While the mouse is the stick: the middle of the screen is neutral, up is nose down.
void mouse_flies();
