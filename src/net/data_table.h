// Data output: rows to graph, file and network.
#pragma once

void data_rows_to_graph();
void data_rows_to_file();
void data_rows_to_net();
// Over the flying picture from y down, virtual units: the rows of mnw.Breal; a report of parts, 0 to 2.
void data_rows_to_screen(float* y);
void part_rep(int index, float* y);
void set_dataoutput_params();
