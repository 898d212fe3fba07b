// Commands and keys of the user.
#pragma once

// Commands by number, as far as the program has them.
enum command_code : int {
    cmd_about = 0,
    cmd_quit = 308,
    view_up_left = 1512,
    view_up_right = 1513,
    view_night_vision = 1534,
    cmd_trace = 1803,
    cmd_screenshot = 1805,
    cmd_kick_pitch = 1819,
    cmd_kick_heading = 1820,
};

// Does this command do anything?
int command_exists(int item);
