// The Oswald efficiency table and its interpolation.
#include "aircraft/derive/oswald.h"

#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/records/mnw.h"

static constexpr int aspecDIM = 5, washoDIM = 3, sweepDIM = 6, taperDIM = 8;
static constexpr float aspec_grid[aspecDIM] = {1, 5, 10, 25, 60};
static constexpr float washo_grid[washoDIM] = {0, 2, 5};
static constexpr float sweep_grid[sweepDIM] = {-40, -25, 0, 25, 40, 70};
static constexpr float taper_grid[taperDIM] = {0, 0.1f, 0.2f, 0.3f, 0.4f, 0.5f, 0.7f, 1};

// [aspect ratio][washout, degrees][sweep of the quarter chord, degrees][taper]; as given, from a lifting-line
// calculation.
// clang-format off
static constexpr float e_table[aspecDIM][washoDIM][sweepDIM][taperDIM] = {
    {   // aspect ratio 1
        {   // washout 0
            {0.941f, 0.973f, 0.979f, 0.981f, 0.982f, 0.983f, 0.983f, 0.984f},  // sweep -40
            {0.958f, 0.979f, 0.981f, 0.982f, 0.983f, 0.983f, 0.983f, 0.984f},  // sweep -25
            {0.972f, 0.982f, 0.983f, 0.983f, 0.983f, 0.983f, 0.983f, 0.983f},  // sweep 0
            {0.978f, 0.983f, 0.983f, 0.983f, 0.983f, 0.983f, 0.983f, 0.983f},  // sweep 25
            {0.980f, 0.983f, 0.983f, 0.983f, 0.983f, 0.983f, 0.983f, 0.983f},  // sweep 40
            {0.982f, 0.986f, 0.985f, 0.983f, 0.982f, 0.980f, 0.977f, 0.969f},  // sweep 70
        },
        {   // washout 2
            {0.931f, 0.966f, 0.974f, 0.978f, 0.979f, 0.981f, 0.982f, 0.983f},  // sweep -40
            {0.950f, 0.974f, 0.979f, 0.981f, 0.982f, 0.982f, 0.983f, 0.984f},  // sweep -25
            {0.967f, 0.979f, 0.981f, 0.982f, 0.983f, 0.984f, 0.984f, 0.985f},  // sweep 0
            {0.975f, 0.982f, 0.983f, 0.983f, 0.984f, 0.984f, 0.985f, 0.985f},  // sweep 25
            {0.978f, 0.983f, 0.984f, 0.984f, 0.984f, 0.985f, 0.985f, 0.986f},  // sweep 40
            {0.980f, 0.987f, 0.988f, 0.988f, 0.988f, 0.987f, 0.986f, 0.981f},  // sweep 70
        },
        {   // washout 5
            {0.904f, 0.946f, 0.957f, 0.963f, 0.967f, 0.969f, 0.972f, 0.975f},  // sweep -40
            {0.928f, 0.958f, 0.966f, 0.969f, 0.972f, 0.973f, 0.975f, 0.977f},  // sweep -25
            {0.950f, 0.968f, 0.972f, 0.974f, 0.975f, 0.976f, 0.978f, 0.979f},  // sweep 0
            {0.962f, 0.972f, 0.975f, 0.976f, 0.977f, 0.978f, 0.980f, 0.981f},  // sweep 25
            {0.966f, 0.974f, 0.976f, 0.978f, 0.979f, 0.980f, 0.981f, 0.983f},  // sweep 40
            {0.968f, 0.982f, 0.985f, 0.987f, 0.989f, 0.990f, 0.992f, 0.992f},  // sweep 70
        },
    },
    {   // aspect ratio 5
        {   // washout 0
            {0.802f, 0.881f, 0.919f, 0.942f, 0.957f, 0.967f, 0.980f, 0.988f},  // sweep -40
            {0.854f, 0.927f, 0.955f, 0.971f, 0.980f, 0.986f, 0.992f, 0.994f},  // sweep -25
            {0.911f, 0.968f, 0.984f, 0.991f, 0.994f, 0.994f, 0.993f, 0.986f},  // sweep 0
            {0.941f, 0.987f, 0.994f, 0.995f, 0.992f, 0.988f, 0.979f, 0.963f},  // sweep 25
            {0.950f, 0.993f, 0.995f, 0.991f, 0.984f, 0.976f, 0.959f, 0.932f},  // sweep 40
            {0.930f, 0.990f, 0.983f, 0.959f, 0.932f, 0.904f, 0.852f, 0.787f},  // sweep 70
        },
        {   // washout 2
            {0.770f, 0.847f, 0.887f, 0.913f, 0.932f, 0.945f, 0.964f, 0.980f},  // sweep -40
            {0.827f, 0.900f, 0.932f, 0.952f, 0.964f, 0.973f, 0.984f, 0.993f},  // sweep -25
            {0.890f, 0.951f, 0.972f, 0.983f, 0.989f, 0.992f, 0.996f, 0.995f},  // sweep 0
            {0.924f, 0.977f, 0.990f, 0.995f, 0.996f, 0.996f, 0.992f, 0.982f},  // sweep 25
            {0.934f, 0.985f, 0.995f, 0.996f, 0.994f, 0.991f, 0.980f, 0.960f},  // sweep 40
            {0.909f, 0.979f, 0.989f, 0.980f, 0.963f, 0.943f, 0.902f, 0.844f},  // sweep 70
        },
        {   // washout 5
            {0.709f, 0.777f, 0.818f, 0.847f, 0.869f, 0.887f, 0.913f, 0.941f},  // sweep -40
            {0.772f, 0.841f, 0.877f, 0.901f, 0.919f, 0.932f, 0.952f, 0.971f},  // sweep -25
            {0.843f, 0.907f, 0.935f, 0.952f, 0.963f, 0.972f, 0.983f, 0.993f},  // sweep 0
            {0.884f, 0.943f, 0.966f, 0.978f, 0.986f, 0.991f, 0.997f, 0.999f},  // sweep 25
            {0.895f, 0.956f, 0.977f, 0.988f, 0.995f, 0.998f, 0.999f, 0.994f},  // sweep 40
            {0.859f, 0.939f, 0.973f, 0.987f, 0.990f, 0.987f, 0.971f, 0.936f},  // sweep 70
        },
    },
    {   // aspect ratio 10
        {   // washout 0
            {0.734f, 0.825f, 0.879f, 0.914f, 0.938f, 0.953f, 0.970f, 0.975f},  // sweep -40
            {0.794f, 0.884f, 0.930f, 0.957f, 0.973f, 0.982f, 0.989f, 0.983f},  // sweep -25
            {0.864f, 0.947f, 0.978f, 0.991f, 0.996f, 0.995f, 0.986f, 0.964f},  // sweep 0
            {0.903f, 0.978f, 0.995f, 0.995f, 0.988f, 0.978f, 0.953f, 0.913f},  // sweep 25
            {0.913f, 0.985f, 0.995f, 0.987f, 0.971f, 0.954f, 0.916f, 0.863f},  // sweep 40
            {0.883f, 0.965f, 0.970f, 0.944f, 0.909f, 0.871f, 0.801f, 0.716f},  // sweep 70
        },
        {   // washout 2
            {0.694f, 0.779f, 0.834f, 0.873f, 0.902f, 0.924f, 0.953f, 0.973f},  // sweep -40
            {0.757f, 0.844f, 0.894f, 0.926f, 0.948f, 0.964f, 0.982f, 0.991f},  // sweep -25
            {0.833f, 0.917f, 0.956f, 0.977f, 0.988f, 0.994f, 0.996f, 0.987f},  // sweep 0
            {0.877f, 0.957f, 0.985f, 0.995f, 0.997f, 0.993f, 0.979f, 0.950f},  // sweep 25
            {0.888f, 0.967f, 0.990f, 0.994f, 0.989f, 0.979f, 0.953f, 0.911f},  // sweep 40
            {0.853f, 0.943f, 0.968f, 0.963f, 0.943f, 0.917f, 0.861f, 0.784f},  // sweep 70
        },
        {   // washout 5
            {0.620f, 0.690f, 0.741f, 0.782f, 0.816f, 0.844f, 0.888f, 0.933f},  // sweep -40
            {0.687f, 0.763f, 0.813f, 0.851f, 0.880f, 0.904f, 0.938f, 0.971f},  // sweep -25
            {0.771f, 0.850f, 0.896f, 0.927f, 0.949f, 0.965f, 0.986f, 0.999f},  // sweep 0
            {0.820f, 0.902f, 0.943f, 0.968f, 0.983f, 0.992f, 1.000f, 0.996f},  // sweep 25
            {0.832f, 0.915f, 0.956f, 0.979f, 0.991f, 0.996f, 0.995f, 0.978f},  // sweep 40
            {0.788f, 0.879f, 0.929f, 0.955f, 0.966f, 0.965f, 0.947f, 0.902f},  // sweep 70
        },
    },
    {   // aspect ratio 25
        {   // washout 0
            {0.673f, 0.774f, 0.842f, 0.887f, 0.914f, 0.929f, 0.935f, 0.912f},  // sweep -40
            {0.732f, 0.836f, 0.898f, 0.935f, 0.955f, 0.963f, 0.956f, 0.922f},  // sweep -25
            {0.805f, 0.908f, 0.958f, 0.978f, 0.982f, 0.975f, 0.947f, 0.893f},  // sweep 0
            {0.847f, 0.945f, 0.979f, 0.981f, 0.967f, 0.946f, 0.896f, 0.824f},  // sweep 25
            {0.855f, 0.951f, 0.976f, 0.967f, 0.944f, 0.914f, 0.851f, 0.770f},  // sweep 40
            {0.821f, 0.920f, 0.934f, 0.910f, 0.871f, 0.826f, 0.740f, 0.640f},  // sweep 70
        },
        {   // washout 2
            {0.624f, 0.717f, 0.786f, 0.838f, 0.876f, 0.902f, 0.931f, 0.935f},  // sweep -40
            {0.685f, 0.782f, 0.849f, 0.896f, 0.927f, 0.947f, 0.963f, 0.954f},  // sweep -25
            {0.763f, 0.864f, 0.923f, 0.957f, 0.974f, 0.980f, 0.973f, 0.940f},  // sweep 0
            {0.809f, 0.909f, 0.957f, 0.976f, 0.979f, 0.971f, 0.940f, 0.883f},  // sweep 25
            {0.819f, 0.918f, 0.960f, 0.971f, 0.965f, 0.949f, 0.905f, 0.835f},  // sweep 40
            {0.781f, 0.882f, 0.919f, 0.921f, 0.903f, 0.874f, 0.807f, 0.715f},  // sweep 70
        },
        {   // washout 5
            {0.540f, 0.613f, 0.675f, 0.729f, 0.775f, 0.814f, 0.874f, 0.929f},  // sweep -40
            {0.601f, 0.681f, 0.745f, 0.797f, 0.840f, 0.876f, 0.927f, 0.967f},  // sweep -25
            {0.683f, 0.771f, 0.835f, 0.883f, 0.919f, 0.946f, 0.977f, 0.990f},  // sweep 0
            {0.734f, 0.826f, 0.887f, 0.929f, 0.956f, 0.973f, 0.984f, 0.969f},  // sweep 25
            {0.745f, 0.838f, 0.898f, 0.937f, 0.959f, 0.970f, 0.970f, 0.941f},  // sweep 40
            {0.702f, 0.794f, 0.855f, 0.893f, 0.913f, 0.918f, 0.904f, 0.853f},  // sweep 70
        },
    },
    {   // aspect ratio 60
        {   // washout 0
            {0.649f, 0.755f, 0.827f, 0.870f, 0.890f, 0.894f, 0.875f, 0.818f},  // sweep -40
            {0.701f, 0.812f, 0.880f, 0.916f, 0.929f, 0.926f, 0.895f, 0.829f},  // sweep -25
            {0.766f, 0.878f, 0.935f, 0.954f, 0.951f, 0.934f, 0.882f, 0.801f},  // sweep 0
            {0.801f, 0.909f, 0.950f, 0.951f, 0.930f, 0.899f, 0.829f, 0.736f},  // sweep 25
            {0.805f, 0.911f, 0.944f, 0.935f, 0.904f, 0.866f, 0.786f, 0.688f},  // sweep 40
            {0.774f, 0.881f, 0.912f, 0.889f, 0.840f, 0.784f, 0.682f, 0.573f},  // sweep 70
        },
        {   // washout 2
            {0.595f, 0.692f, 0.767f, 0.822f, 0.859f, 0.880f, 0.892f, 0.866f},  // sweep -40
            {0.648f, 0.751f, 0.825f, 0.876f, 0.906f, 0.922f, 0.922f, 0.884f},  // sweep -25
            {0.717f, 0.824f, 0.892f, 0.930f, 0.947f, 0.948f, 0.925f, 0.865f},  // sweep 0
            {0.755f, 0.861f, 0.919f, 0.943f, 0.944f, 0.931f, 0.885f, 0.808f},  // sweep 25
            {0.761f, 0.866f, 0.918f, 0.933f, 0.926f, 0.905f, 0.848f, 0.762f},  // sweep 40
            {0.728f, 0.833f, 0.884f, 0.891f, 0.868f, 0.832f, 0.751f, 0.650f},  // sweep 70
        },
        {   // washout 5
            {0.505f, 0.582f, 0.650f, 0.710f, 0.762f, 0.804f, 0.866f, 0.909f},  // sweep -40
            {0.557f, 0.639f, 0.711f, 0.771f, 0.821f, 0.860f, 0.913f, 0.943f},  // sweep -25
            {0.627f, 0.717f, 0.789f, 0.846f, 0.889f, 0.920f, 0.953f, 0.955f},  // sweep 0
            {0.669f, 0.761f, 0.831f, 0.882f, 0.916f, 0.936f, 0.948f, 0.924f},  // sweep 25
            {0.676f, 0.769f, 0.837f, 0.883f, 0.912f, 0.927f, 0.928f, 0.892f},  // sweep 40
            {0.641f, 0.732f, 0.800f, 0.844f, 0.867f, 0.874f, 0.856f, 0.801f},  // sweep 70
        },
    },
};
// clang-format on

// Upper index of the grid cell: the first from 1 whose value is not below x, else the last. n for a NaN.
static int upper_index(const float* grid, int n, float x) {
    for (int i = 1; i < n; ++i)
        if (grid[i] >= x) return i;
    return x > grid[n - 1] ? n - 1 : n;
}

float ret_e(float aspec, float washo, float sweep, float taper) {
    const int a = upper_index(aspec_grid, aspecDIM, aspec);
    const int w = upper_index(washo_grid, washoDIM, washo);
    const int s = upper_index(sweep_grid, sweepDIM, sweep);
    const int t = upper_index(taper_grid, taperDIM, taper);
    if (a >= aspecDIM || w >= washoDIM || s >= sweepDIM || t >= taperDIM) {
        MACIBM_fatal("Out of bounds e-search!");
        return 1.0f;
    }
    // folded in the order taper, sweep, washout, aspect ratio; interp holds what lies off the grid
    float by_aspec[2];
    for (int i = 0; i < 2; ++i) {
        float by_washo[2];
        for (int j = 0; j < 2; ++j) {
            float by_sweep[2];
            for (int k = 0; k < 2; ++k) {
                const float* row = e_table[a - 1 + i][w - 1 + j][s - 1 + k];
                by_sweep[k] = interp(taper_grid[t - 1], row[t - 1], taper_grid[t], row[t], taper);
            }
            by_washo[j] = interp(sweep_grid[s - 1], by_sweep[0], sweep_grid[s], by_sweep[1], sweep);
        }
        by_aspec[i] = interp(washo_grid[w - 1], by_washo[0], washo_grid[w], by_washo[1], washo);
    }
    return interp(aspec_grid[a - 1], by_aspec[0], aspec_grid[a], by_aspec[1], aspec);
}

float interp9(float x1, float x2, float x3, float y1, float y2, float y3, float z11, float z21, float z31,
              float z12, float z22, float z32, float z13, float z23, float z33, float x, float y) {
    const bool left = x<x2, high = y> y2;
    const float xa = left ? x1 : x2, xb = left ? x2 : x3;
    const float ya = high ? y2 : y1, yb = high ? y3 : y2;
    // along x on the lower and on the upper line of the quadrant
    const float low_a = high ? (left ? z12 : z22) : (left ? z11 : z21);
    const float low_b = high ? (left ? z22 : z32) : (left ? z21 : z31);
    const float top_a = high ? (left ? z13 : z23) : (left ? z12 : z22);
    const float top_b = high ? (left ? z23 : z33) : (left ? z22 : z32);
    return extrap(ya, extrap(xa, low_a, xb, low_b, x), yb, extrap(xa, top_a, xb, top_b, x), y);
}
