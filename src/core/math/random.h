// Random numbers: a process-wide sequence with an explicit state, so that a run repeats on any
// machine, another for pictures, and a table of draws for repeatable placement.
// Never two draws in one argument list: their order would be the compiler's.
#pragma once

constexpr int randratDIM = 10000;
extern float randrat[randratDIM];  // filled once, 0 to 0.9999

void rand_seed(unsigned seed);     // any seed; equal seeds give equal sequences
unsigned rand31();                 // 0 to 2^31 - 1

float flt_rand(float min, float max);
// For what is only seen: a sequence apart, so that a picture, drawn or not, changes no flight.
float view_rand(float min, float max);
// Whole number from min to max, both ends possible; a value out of range is fatal.
int int_rand(int min, int max);

// Fills randrat; once at start-up.
void init_rand_rat();
// Repeatable draws: entry seed modulo the table, scaled to the range. A negative seed is fatal.
float flt_seedrand(float min, float max, int seed);
int int_seedrand(int min, int max, int seed);
