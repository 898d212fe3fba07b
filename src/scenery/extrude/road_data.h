// Road networks of a tile: their definition and their chains.
#pragma once
#include <string>
#include <vector>

// xyz: count points; st: two a point or null; limits of the level of detail in metres, -1 none.
using ExtrudeFunc_f = void (*)(int polyType, int count, const float* xyz, const float* st, float lod_near,
                               float lod_far, void* ref);
using ReceiveObj_f = void (*)(double x, double y, double z, double heading, bool calc_y, int obj, void* inRef,
                              void* inRef2);

struct RoadDef_t {
    std::vector<int> texes, texes_lit;  // by layer; night textures 0 for none
    std::vector<int> offsets;           // polygon offset of each

    bool ReadFromDef(const char* inFile);
    void Clear();
};

struct RoadChain_t;

struct RoadData {
    // Finds or makes the junctions by id; no_dupes gives a chain that is there already.
    RoadChain_t* AddSimpleSegment(int type, unsigned int node1, unsigned int node2, const float* xyz1,
                                  const float* xyz2, bool no_dupes);
    void AddShapePoint(RoadChain_t* chain, int count, const float* xyz);
    void ProcessChains(bool inSimplify, float x1, float x2, float z1, float z2);
    void ExtrudeArea(int tex_index, const RoadDef_t& defs, int x_bucket, int y_bucket, ExtrudeFunc_f func,
                     ReceiveObj_f objFunc, void* ref, void* objRef, void* objRef2);
    void Clear();
};
