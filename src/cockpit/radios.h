// Radio navigation of the user's aircraft.
#pragma once

void check_markers();
void handle_nav(int w);
void handle_adf(int w);
void update_FMS(int plot);
void update_gps_and_bearings();

// Morse idents of the tuned stations.
class mors_class {
public:
    void manage();
};
extern mors_class mors;
