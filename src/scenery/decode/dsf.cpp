// A tile from its header to its definitions.
#include "scenery/decode/dsf.h"

#include <sys/stat.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "scenery/decode/dsf_commands.h"

const char* const dsfErrorMessages[dsf_error_DIM] = {
    "dsf_ErrOK",
    "dsf_ErrCouldNotOpenFile",
    "dsf_ErrOutOfMemory",
    "dsf_ErrCouldNotReadFile",
    "dsf_ErrNoAtoms",
    "dsf_ErrBadCookie",
    "dsf_ErrBadVersion",
    "dsf_ErrMissingAtom",
    "dsf_ErrBadProperties",
    "dsf_ErrMisformattedCommandAtom",
    "dsf_ErrMisformattedScalingAtom",
    "dsf_ErrBadCommand",
};

namespace {
int find_top_atoms(const char* start, const char* stop, XAtomContainer* to) {
    if (stop - start < static_cast<ptrdiff_t>(sizeof(DSFHeader_t) + sizeof(DSFFooter_t))) {
        printf("DSF ERROR: this file appears to not be atomic.\n");
        return dsf_ErrNoAtoms;
    }
    to->begin = start + sizeof(DSFHeader_t);
    to->end = stop - sizeof(DSFFooter_t);
    if (to->begin == to->end) {
        printf("DSF ERROR: this file appears to not to have any atoms.\n");
        return dsf_ErrNoAtoms;
    }
    return dsf_ErrOK;
}

int check_header(const char* start) {
    DSFHeader_t header;
    memcpy(&header, start, sizeof header);
    const char* c = header.cookie;
    if (memcmp(c, dsf_cookie, dsf_cookie_size) != 0) {
        printf("DSF ERROR: We hit a bad cookie.  Expected: '%s', got: '%c%c%c%c%c%c%c%c'\n", dsf_cookie, c[0],
               c[1], c[2], c[3], c[4], c[5], c[6], c[7]);
        return dsf_ErrBadCookie;
    }
    if (header.version != dsf_version) {
        printf("DSF ERROR: We hit a bad version.  Expected: %d, got: %d\n", dsf_version, header.version);
        return dsf_ErrBadVersion;
    }
    return dsf_ErrOK;
}

// Where everything lies.
struct tile_atoms {
    XAtomContainer top, head, definitions, geodata;
    XAtomStringTable properties, terrain, objects, polygons, networks;
    XAtomPackedData commands;
};

bool find_atom(const XAtomContainer& in, uint32_t id, const char* what, XAtom* to) {
    if (in.GetNthAtomOfID(id, 0, *to)) return true;
    printf("DSF ERROR: We are missing the %s atom.\n", what);
    return false;
}

bool find_container(const XAtomContainer& in, uint32_t id, const char* what, XAtomContainer* to) {
    XAtom atom;
    if (!find_atom(in, id, what, &atom)) return false;
    atom.GetContents(*to);
    return true;
}

bool find_atoms(tile_atoms* tile) {
    return find_container(tile->top, dsf_HEAD, "metadata", &tile->head) &&
           find_container(tile->top, dsf_DEFN, "definitions", &tile->definitions) &&
           find_container(tile->top, dsf_GEOD, "geodata", &tile->geodata) &&
           find_atom(tile->top, dsf_CMDS, "commands", &tile->commands) &&
           find_atom(tile->head, dsf_PROP, "properties", &tile->properties) &&
           find_atom(tile->definitions, dsf_TERT, "terrain types", &tile->terrain) &&
           find_atom(tile->definitions, dsf_OBJT, "object defs", &tile->objects) &&
           find_atom(tile->definitions, dsf_POLY, "polygon defs", &tile->polygons) &&
           find_atom(tile->definitions, dsf_NETW, "networks", &tile->networks);
}

int tell_properties(const XAtomStringTable& table, const DSFCallbacks_t& tell, void* ref) {
    for (const char* name = table.GetFirstString(); name;) {
        const char* value = table.GetNextString(name);
        if (!value) {
            printf("DSF ERROR: We have an odd number of property strings.  The overhanging property is: %s\n",
                   name);
            return dsf_ErrBadProperties;
        }
        tell.AcceptProperty_f(name, value, ref);
        name = table.GetNextString(value);
    }
    return dsf_ErrOK;
}

bool tell_definitions(const XAtomStringTable& table, void (*accept)(const char*, void*), dsf_count* count,
                      void* ref) {
    for (const char* name = table.GetFirstString(); name; name = table.GetNextString(name)) {
        if (!count->add(dsf_made_definitions, 1)) return false;
        accept(name, ref);
    }
    return true;
}

struct free_bytes {
    void operator()(char* bytes) const { free(bytes); }
};
struct close_file {
    void operator()(FILE* file) const { fclose(file); }
};

// Negative for a folder or device, which have no size to read.
long file_size(FILE* file) {
    struct stat known;
    return fstat(fileno(file), &known) == 0 && S_ISREG(known.st_mode) ? static_cast<long>(known.st_size) : -1;
}
}  // namespace

int DSFReadMem(const char* inStart, const char* inStop, DSFCallbacks_t* inCallbacks, void* ref) {
    tile_atoms tile;
    if (const int error = find_top_atoms(inStart, inStop, &tile.top)) return error;
    if (const int error = check_header(inStart)) return error;
    if (!find_atoms(&tile)) return dsf_ErrMissingAtom;
    dsf_pools pools;
    if (const int error = read_dsf_pools(tile.geodata, &pools)) return error;
    const DSFCallbacks_t& tell = *inCallbacks;
    if (const int error = tell_properties(tile.properties, tell, ref)) return error;
    dsf_count count;
    if (!tell_definitions(tile.terrain, tell.AcceptTerrainDef_f, &count, ref) ||
        !tell_definitions(tile.objects, tell.AcceptObjectDef_f, &count, ref) ||
        !tell_definitions(tile.polygons, tell.AcceptPolygonDef_f, &count, ref) ||
        !tell_definitions(tile.networks, tell.AcceptNetworkDef_f, &count, ref))
        return dsf_ErrOutOfMemory;
    return run_dsf_commands(tile.commands, pools, tell, &count, ref);
}

int DSFReadFile(const char* inPath, DSFCallbacks_t* inCallbacks, void* inRef) {
    const std::unique_ptr<FILE, close_file> file(fopen(inPath, "rb"));
    if (!file) return 1;
    const long size = file_size(file.get());
    if (size < 0) return 1;
    const size_t bytes = static_cast<size_t>(size);
    const std::unique_ptr<char, free_bytes> buffer(static_cast<char*>(malloc(bytes > 0 ? bytes : 1)));
    if (!buffer || fread(buffer.get(), 1, bytes, file.get()) != bytes) return 1;
    return DSFReadMem(buffer.get(), buffer.get() + bytes, inCallbacks, inRef) != dsf_ErrOK;
}
