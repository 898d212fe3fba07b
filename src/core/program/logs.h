// The text outputs of a run, in the working directory. There are no log levels.
#pragma once
#include <fstream>

extern std::ofstream deverr;  // "DevError.out": remarks for developers of content
extern std::ofstream cyc;     // "Tarvane.out": trace of the flight model and load report
extern std::ofstream dat;     // "Data.out": data table
extern std::ofstream xer;     // "Error.out": fatal errors and the frame profile

// Where a run's outputs go: tools leave no files behind.
enum log_target : int { log_to_files, log_to_nothing };

// Creates the four files, each showing floats in fixed notation. Unopened streams swallow output.
void open_logs();
void close_logs();
