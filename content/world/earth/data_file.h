// Files of content/world/data. Faults are thrown as std::runtime_error that names the file.
#pragma once
#include <stdint.h>

#include <string>
#include <vector>

std::string world_data_folder();
std::vector<uint8_t> inflated(const std::string& path, size_t expected_bytes = 0);
// Rows of comma-separated fields; each row has at least `fields` of them.
std::vector<std::vector<std::string>> csv_rows(const std::string& path, size_t fields);
