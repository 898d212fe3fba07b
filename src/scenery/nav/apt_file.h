// The reader of airports.
#pragma once
#include <string>

// 0 reads the default file, fatal when that cannot be used; 2 appends the file of a package, silent when
// there is none.
int IO_apt(int IO_type, const std::string& custom_path);
