// Boards of text over the picture: the text of a file, the checklist, the controllers' menu, what is spoken.
#pragma once

// At most one of them. Gives 1 when a board covers what else would stand there.
int draw_boards();
