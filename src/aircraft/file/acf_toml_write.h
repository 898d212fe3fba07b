// The aircraft record written as TOML, the form that designers read and change.
#pragma once
#include <string>

// The text of slot p; acf_from_toml makes the same record of it. explain adds the meaning of each field.
std::string acf_to_toml(int p, bool explain = false);
