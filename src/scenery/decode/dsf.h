// The tile decoder: tells the contents of a tile through callbacks.
// Role: scene assembly, the tile writer's check of its own work and tools read tiles with it. It keeps
// nothing, has no state of its own and must not know what a tile's contents are for.
#pragma once

// Every slot is filled; ref comes back as it was given. Strings point into the file's bytes, arrays are the
// decoder's own: both last as long as the call. Definition numbers count the definitions of their kind as
// they arrive, from 0, and are not checked; nor are flags, level-of-detail distances and projections.
struct DSFCallbacks_t {
    void (*AcceptTerrainDef_f)(const char* name, void* ref);
    void (*AcceptObjectDef_f)(const char* name, void* ref);
    void (*AcceptPolygonDef_f)(const char* name, void* ref);
    void (*AcceptNetworkDef_f)(const char* name, void* ref);
    void (*AcceptProperty_f)(const char* name, const char* value, void* ref);
    // depth: coordinates of each vertex of the patch, as its pool has planes.
    void (*BeginPatch_f)(unsigned terrain, double lod_near, double lod_far, unsigned char flags,
                         float* texture_projection, float* mask_projection, int depth, void* ref);
    void (*BeginPrimitive_f)(int type, void* ref);  // dsf_primitive
    void (*AddPatchVertex_f)(double* coordinates, void* ref);
    void (*EndPrimitive_f)(void* ref);
    void (*EndPatch_f)(void* ref);
    void (*AddObject_f)(unsigned object, double* coordinates, double rotation, void* ref);
    // Coordinates of networks are six: a point, and when curved its control point.
    void (*BeginSegment_f)(unsigned network, unsigned subtype, unsigned start_node, double* coordinates,
                           bool curved, void* ref);
    void (*AddSegmentShapePoint_f)(double* coordinates, bool curved, void* ref);
    void (*EndSegment_f)(unsigned end_node, double* coordinates, bool curved, void* ref);
    void (*BeginPolygon_f)(unsigned polygon, unsigned short parameter, void* ref);
    void (*BeginPolygonWinding_f)(void* ref);
    void (*AddPolygonPoint_f)(double* coordinates, void* ref);
    void (*EndPolygonWinding_f)(void* ref);
    void (*EndPolygon_f)(void* ref);
};

enum dsf_error : int {
    dsf_ErrOK,
    dsf_ErrCouldNotOpenFile,
    dsf_ErrOutOfMemory,       // also pools of more than dsf_pool_bytes_max, and what passes dsf_limits
    dsf_ErrCouldNotReadFile,  // also a pool whose bytes do not yield the points it claims
    dsf_ErrNoAtoms,
    dsf_ErrBadCookie,
    dsf_ErrBadVersion,
    dsf_ErrMissingAtom,
    dsf_ErrBadProperties,
    dsf_ErrMisformattedCommandAtom,  // also a pool, point or plane that is not there
    dsf_ErrMisformattedScalingAtom,  // also scales that are missing or not finite
    dsf_ErrBadCommand,
    dsf_error_DIM
};
extern const char* const dsfErrorMessages[dsf_error_DIM];  // their names

// Pools of no tile come near this; those of a hostile one would take all memory.
constexpr long dsf_pool_bytes_max = 1L << 27;

// What a tile makes, and the most it may: the heaviest tiles stay below a fifth of it. A few bytes can ask
// for 65,535 of a kind, so a hostile tile would hold the load up for hours. Nothing counts as free: an empty
// patch or primitive takes its place in memory like a full one.
enum dsf_made : int {
    dsf_made_definitions,
    dsf_made_patches,
    dsf_made_primitives,
    dsf_made_vertices,
    dsf_made_objects,
    dsf_made_windings,  // and polygons
    dsf_made_corners,   // of windings
    dsf_made_junctions,
    dsf_made_DIM
};
struct dsf_limit {
    const char* what;
    long most;
};
constexpr dsf_limit dsf_limits[dsf_made_DIM] = {
    {"definitions", 8192}, {"patches", 65536},   {"primitives", 250000},       {"vertices", 2000000},
    {"objects", 500000},   {"polygons", 250000}, {"polygon corners", 1000000}, {"road points", 2000000},
};

// Decodes the tile between the two. Callbacks come in a fixed order: properties, the definitions of terrain,
// objects, polygons and networks, then what the commands draw. Returns a dsf_error, and says on the standard
// output what was wrong; what was told before a fault stands. Where the commands end in the middle of one, an
// open patch is still ended; where they name what is not there, the telling breaks off.
int DSFReadMem(const char* inStart, const char* inStop, DSFCallbacks_t* inCallbacks, void* ref);
// The same for a file. 0 when all went well, 1 for any failure.
int DSFReadFile(const char* inPath, DSFCallbacks_t* inCallbacks, void* inRef);
