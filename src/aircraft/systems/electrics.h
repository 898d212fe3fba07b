// Power on the buses of the user's aircraft.
#pragma once

float tot_volt_avail();  // 0 to 1 from batteries and generators; 0 with failure 44
int esys_working();      // above 0.1
int avio_working();      // avionics switch on and above 0.1
int ac_working();        // esys_working and an inverter on and not failed
