// Bare pavement and bare ground of runways, as they are without paint.
// Role: marks are painted over them. A picture is as wide as a runway of 45 m; x runs across it from the left,
// y along it from the nearer end, in metres. Grounds repeat after 45 m along and across, so that rows join.
#pragma once
#include <vector>

#include "texel_picture.h"

constexpr double runway_metres = 45.0;

enum hard_surface : int { asphalt = 0, concrete = 1 };
enum natural_surface : int { grass = 0, dirt, gravel, lakebed, natural_surfaces };

// A square of it with so many texels each way. With lanes: worn and blackened where wheels run.
class ground {
public:
    ground(hard_surface kind, int side, bool with_lanes);
    ground(natural_surface kind, int side);
    const texel& at(int s, int t) const { return picture_.at(s % side_, t % side_); }
    int side() const { return side_; }

private:
    int side_;
    texel_picture picture_;
};

// Noise that repeats with the ground, 0 to 1; `size` of its lattice in metres.
double ground_noise(double x, double y, double size, int octaves, unsigned seed);
// The same, long along the runway.
double streaks(double x, double y, unsigned seed);
