// Pictures through gnuplot.
#pragma once
#include <string>
#include <vector>

// Runs a gnuplot script that writes a picture; throws flight_fault when gnuplot fails or is missing.
void run_gnuplot(const std::string& script);

// A text in gnuplot's single quotes.
std::string plot_quoted(const std::string& text);

// Rows of numbers in gnuplot's own block form, to be plotted as $name; an empty row parts two curves.
std::string plot_data(const char* name, const std::vector<std::vector<double>>& rows);
