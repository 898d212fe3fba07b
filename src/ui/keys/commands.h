// Commands and keys of the user.
#pragma once

// Commands by number, as far as the program names them; views are view_code.
#define COMMAND_CODES(X)                                                                         \
    X(about, 0)                                                                                  \
    X(scroll_up, 1502)                                                                           \
    X(scroll_down, 1503)                                                                         \
    X(zoom_in, 1527)                                                                             \
    X(zoom_out, 1528)                                                                            \
    X(quit, 308)                                                                                 \
    X(earth, 616)                                                                                \
    X(mars, 617)                                                                                 \
    X(mouse_look, 1530)                                                                          \
    X(transparent_panel, 1531)                                                                   \
    X(smoke, 1532)                                                                               \
    X(sunglasses, 1533)                                                                          \
    X(night_vision, 1534)                                                                        \
    X(replay, 1535)                                                                              \
    X(flight_path, 1536)                                                                         \
    X(forces, 1802)                                                                              \
    X(trace, 1803)                                                                               \
    X(screenshot, 1805)                                                                          \
    X(hotspots, 1807)                                                                            \
    X(show_text, 1810)                                                                           \
    X(show_checklist, 1813)                                                                      \
    X(ai_opens, 1815)                                                                            \
    X(ai_flys, 1816)                                                                             \
    X(ai_views, 1817)                                                                            \
    X(kick_pitch, 1819)                                                                          \
    X(kick_heading, 1820)
#define COMMAND_NUMBER(name, number) cmd_##name = number,
enum command_code : int { COMMAND_CODES(COMMAND_NUMBER) };
#undef COMMAND_NUMBER

// Does this command do anything?
int command_exists(int item);
