// Facades and forests: generated from polygons of a tile by their definition files.
#pragma once
#include <string>
#include <vector>

#include "core/math/geo3.h"
#include "scenery/extrude/road_data.h"

struct FacadeObj_t {
    std::string texture;  // beside the definition
    bool is_ring = true;
    bool two_sided = false;
};
bool ReadFacadeObjFile(const char* inPath, FacadeObj_t& outObj);
int FindFloorsForHeight(const FacadeObj_t& inObj, float height);
void BuildFacadeObj(const FacadeObj_t& inObj, const Polygon3& inPolygon, int inFloors, const Vector3& inUp,
                    ExtrudeFunc_f inFunc, void* inRef);

struct forest_info_struct {
    int tex_ref = 0;
};
bool io_read_forest(const std::string& inPath, forest_info_struct& outForest);
void extrude_forest(const forest_info_struct& inForestInfo, const std::vector<Polygon3>& inWindings,
                    ExtrudeFunc_f inExtrudeFunc, void* inRef);
