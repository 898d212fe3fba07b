// Views as commands.
#pragma once

// Whether a command chooses a view, or turns the view down.
int view_command_exists(int item);
