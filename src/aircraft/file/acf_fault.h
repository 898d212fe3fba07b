// What becomes of a faulty aircraft: the user's own ends the program with a fixed text; a stranger's,
// in slots 1 to 9, must not, and is told of once and given up.
#pragma once
#include <string>

// Shows the lines for aircraft p: fatal in slot 0; else as a message, once per aircraft file, and the
// file is remembered. The caller gives the load up.
void acf_fault(int p, const std::string& s1, const std::string& s2, const std::string& s3,
               const std::string& s4, const char* file, int line);
#define ACF_fault(p, s1, s2, s3, s4) acf_fault(p, s1, s2, s3, s4, __FILE__, __LINE__)

// Has this aircraft file shown a fault? It isn't picked again for traffic.
bool acf_was_faulty(const std::string& path);
void forget_faulty_acf();
