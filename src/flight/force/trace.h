// The written trace of one half step in "Tarvane.out": the tool for checking an aircraft design.
// Callers stand behind one test of mnw.cyc_out.
#pragma once
#include <initializer_list>
#include <string>
#include <utility>

using trace_list = std::initializer_list<std::pair<const char*, float>>;

void trace_banner(const std::string& heading);
// One line: label, then each name with its value.
void trace_values(const std::string& label, trace_list values);
void trace_coeffs(const char* step, float cl, float cd, float cm);
// Banner, label, then the three running forces and the moments.
void aero_forcerep(const std::string& label);
void prop_forcerep(const std::string& label);
void gear_forcerep(const std::string& label);
