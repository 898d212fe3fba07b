// Neutral stand-ins for readers that do not exist yet.
#include "aircraft/acf_old.h"
#include "scenery/objects.h"

int OLD_IO_acf(const std::string&, int) { return 0; }
int build_obs(std::string, int) { return -1; }
