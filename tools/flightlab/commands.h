// The subcommands. Each gives the exit status: 0 good, 1 a fault in the aircraft or its flight.
#pragma once

int stall_command(int argc, char** argv);
int spin_command(int argc, char** argv);
int hash_command(int argc, char** argv);
int report_command(int argc, char** argv);
int tunnel_command(int argc, char** argv);
int bench_command(int argc, char** argv);
int trim_command(int argc, char** argv);
int fly_command(int argc, char** argv);
