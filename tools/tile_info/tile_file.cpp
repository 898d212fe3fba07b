// A tile's file through the decoder.
#include "tile_file.h"

#include <errno.h>
#include <string.h>
#include <unistd.h>

#include <stdexcept>

bool is_water(const std::string& terrain) { return terrain == "water" || terrain == "terrain_Water"; }
bool is_hidden(const std::string& terrain) { return terrain.rfind("terrain_VirtualOrtho", 0) == 0; }

tile_file::tile_file(const std::string& path) : path_(path) {
    if (access(path.c_str(), R_OK) != 0)
        throw std::runtime_error(path + ": " + dsfErrorMessages[dsf_ErrCouldNotOpenFile] + " (" +
                                 strerror(errno) + ")");
    if (!file_.retry(path.c_str()))
        throw std::runtime_error(path + ": " + dsfErrorMessages[dsf_ErrCouldNotReadFile] +
                                 " (empty, or no file)");
}

void tile_file::tell(DSFCallbacks_t t, void* ref) const {
    const auto or_nothing = []<class... types>(void (**slot)(types...)) {
        if (!*slot) *slot = [](types...) {};
    };
    or_nothing(&t.AcceptTerrainDef_f), or_nothing(&t.AcceptObjectDef_f), or_nothing(&t.AcceptPolygonDef_f);
    or_nothing(&t.AcceptNetworkDef_f), or_nothing(&t.AcceptProperty_f), or_nothing(&t.BeginPatch_f);
    or_nothing(&t.BeginPrimitive_f), or_nothing(&t.AddPatchVertex_f), or_nothing(&t.EndPrimitive_f);
    or_nothing(&t.EndPatch_f), or_nothing(&t.AddObject_f), or_nothing(&t.BeginSegment_f);
    or_nothing(&t.AddSegmentShapePoint_f), or_nothing(&t.EndSegment_f), or_nothing(&t.BeginPolygon_f);
    or_nothing(&t.BeginPolygonWinding_f), or_nothing(&t.AddPolygonPoint_f);
    or_nothing(&t.EndPolygonWinding_f), or_nothing(&t.EndPolygon_f);
    const int error = DSFReadMem(begin(), end(), &t, ref);
    if (error != dsf_ErrOK) throw std::runtime_error(path_ + ": " + dsfErrorMessages[error]);
}
