// Routines of this folder that do not exist yet: each call stands in its place in the frame and gets its
// neutral answer here. The file shrinks as they are built.
#include "scenery/draw/airports_draw.h"
#include "scenery/draw/ships_draw.h"
#include "scenery/extrude/facades.h"
#include "scenery/extrude/road_data.h"
#include "scenery/ground/tile.h"
#include "scenery/old/old_env.h"

// No tiles of the older kind.
std::vector<int> old_cus_texes;
int read_old_env(int, int, int, int) { return 0; }
bool RoadDef_t::ReadFromDef(const char*) { return true; }
void RoadDef_t::Clear() {}
RoadChain_t* RoadData::AddSimpleSegment(int, unsigned int, unsigned int, const float*, const float*, bool) {
    return nullptr;
}
void RoadData::AddShapePoint(RoadChain_t*, int, const float*) {}
void RoadData::ProcessChains(bool, float, float, float, float) {}
void RoadData::ExtrudeArea(int, const RoadDef_t&, int, int, ExtrudeFunc_f, ReceiveObj_f, void*, void*,
                           void*) {}
void RoadData::Clear() {}
bool ReadFacadeObjFile(const char*, FacadeObj_t&) { return true; }
int FindFloorsForHeight(const FacadeObj_t&, float) { return 0; }
void BuildFacadeObj(const FacadeObj_t&, const Polygon3&, int, const Vector3&, ExtrudeFunc_f, void*) {}
bool io_read_forest(const std::string&, forest_info_struct&) { return true; }
void extrude_forest(const forest_info_struct&, const std::vector<Polygon3>&, ExtrudeFunc_f, void*) {}
void manage_ships() {}
void plot_airport_lights() {}
