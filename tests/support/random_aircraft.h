// Random aircraft in random states, for tests that compare over many of them.
#pragma once
#include <functional>
#include <memory>
#include <random>
#include <string>

#include "core/records/records.h"

namespace test {

extern std::mt19937 dice;  // the same draws follow from a seed on every machine
float any(double lo, double hi);
int whole(int lo, int hi);  // both included
bool chance(double p);

// Sets fields of a record, by their names, to anything between two values.
void draw(const veh_field_list& list, void* record, const std::string& names, double lo, double hi);

// An aircraft of the content in the units of its file, flown before so that the rest of the system stands.
std::unique_ptr<veh_struct> as_designed(const std::string& name);

// Such an aircraft changed beyond recognition and derived; more changes it further before that.
void draw_aircraft(
    const veh_struct& base, const std::function<void()>& more = [] {});
// A state of flight, controls and failures of surfaces. No time passes.
void draw_state();

}  // namespace test
