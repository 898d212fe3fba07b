// Aircraft files of the two older versions.
#pragma once
#include <string>

// Reads a file of version 700 or 740 into slot p, converted to the present record; 0 when it is neither.
int OLD_IO_acf(const std::string& path, int p);
