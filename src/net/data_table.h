// Data output: rows to graph, file and network.
#pragma once

void data_rows_to_graph();
void data_rows_to_file();
void data_rows_to_net();
void set_dataoutput_params();
