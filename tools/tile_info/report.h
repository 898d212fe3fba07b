// A survey as text on the standard output.
#pragma once
#include "survey.h"

void print_report(const tile_file& file, const tile_survey& survey);
