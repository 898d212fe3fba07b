// Pictures through gnuplot.
#pragma once
#include <string>

// Runs a gnuplot script that writes a picture; throws flight_fault when gnuplot fails or is missing.
void run_gnuplot(const std::string& script);

// A text in gnuplot's single quotes.
std::string plot_quoted(const std::string& text);
