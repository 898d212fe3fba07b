// Tiles spelled out byte by byte, and a record of what a decoder tells of them.
#pragma once
#include <ctype.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "scenery/decode/dsf.h"

namespace test {

template <class T>
std::string raw_bytes(T value) {
    std::string bytes(sizeof(T), '\0');
    memcpy(bytes.data(), &value, sizeof(T));
    return bytes;
}
inline std::string u8(unsigned value) { return raw_bytes(static_cast<uint8_t>(value)); }
inline std::string u16(unsigned value) { return raw_bytes(static_cast<uint16_t>(value)); }
inline std::string u32(unsigned value) { return raw_bytes(static_cast<uint32_t>(value)); }
inline std::string f32(double value) { return raw_bytes(static_cast<float>(value)); }
inline std::string floats(const std::vector<double>& values) {
    std::string bytes;
    for (const double value : values) bytes += f32(value);
    return bytes;
}

// Byte strings in hexadecimal, parted by semicolons; spaces are for the eye.
inline std::vector<std::string> hex_list(const std::string& text) {
    std::vector<std::string> list(1);
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == ';') list.emplace_back();
        if (isxdigit(static_cast<unsigned char>(text[i])))
            list.back() += static_cast<char>(std::stoi(text.substr(i++, 2), nullptr, 16));
    }
    return list;
}

// The name's letters stand backwards in the file.
inline std::string atom(const std::string& name, const std::string& contents) {
    return std::string(name.rbegin(), name.rend()) + u32(static_cast<unsigned>(contents.size() + 8)) +
           contents;
}
inline std::string strings(const std::vector<std::string>& list) {
    std::string bytes;
    for (const std::string& s : list) bytes += s + '\0';
    return bytes;
}

// Flat planes; points[i] holds the coordinates of point i.
inline std::string pool(const std::vector<std::vector<unsigned>>& points, size_t planes, int bits) {
    std::string bytes = u32(static_cast<unsigned>(points.size())) + u8(static_cast<unsigned>(planes));
    for (size_t plane = 0; plane < planes; ++plane) {
        bytes += u8(0);
        for (const std::vector<unsigned>& p : points) bytes += bits == 16 ? u16(p[plane]) : u32(p[plane]);
    }
    return atom(bits == 16 ? "POOL" : "PO32", bytes);
}

struct tile_parts {
    std::string properties = strings({"sim/west", "-118"});
    std::string terrain, objects, polygons, networks;
    std::string geodata, commands;

    std::string bytes() const {
        return file(atom("HEAD", atom("PROP", properties)) + definitions() + atom("GEOD", geodata) +
                    atom("CMDS", commands));
    }
    std::string definitions() const {
        return atom("DEFN", atom("TERT", terrain) + atom("OBJT", objects) + atom("POLY", polygons) +
                                atom("NETW", networks));
    }
    static std::string file(const std::string& atoms) {
        return "TARVEDSF" + u32(1) + atoms + std::string(16, 'f');
    }
};

// Callbacks that listen to nothing; a test fills in those that it asks about.
inline DSFCallbacks_t deaf_callbacks() {
    const auto deaf = [](auto...) {};
    return {deaf, deaf, deaf, deaf, deaf, deaf, deaf, deaf, deaf, deaf,
            deaf, deaf, deaf, deaf, deaf, deaf, deaf, deaf, deaf};
}

// One line a callback.
class tile_record {
public:
    std::vector<std::string> lines;
    int error = -1;

    static tile_record of(const std::string& bytes) {
        tile_record record;
        // a block of exactly that size, so that a sanitizer sees any read outside
        const std::vector<char> block(bytes.begin(), bytes.end());
        DSFCallbacks_t tell = callbacks();
        record.error = DSFReadMem(block.data(), block.data() + block.size(), &tell, &record);
        return record;
    }
    static DSFCallbacks_t callbacks() {
        DSFCallbacks_t t;
        t.AcceptTerrainDef_f = [](const char* s, void* r) { add(r, "terrain %s", s); };
        t.AcceptObjectDef_f = [](const char* s, void* r) { add(r, "object %s", s); };
        t.AcceptPolygonDef_f = [](const char* s, void* r) { add(r, "polygon %s", s); };
        t.AcceptNetworkDef_f = [](const char* s, void* r) { add(r, "network %s", s); };
        t.AcceptProperty_f = [](const char* n, const char* v, void* r) { add(r, "property %s=%s", n, v); };
        t.BeginPatch_f = [](unsigned type, double lod_near, double lod_far, unsigned char flags, float* st,
                            float* mask, int depth, void* r) {
            self(r).depth_ = depth;
            add(r, "patch %d %g %g %d st %g %g mask %g %g depth %d", static_cast<int>(type), lod_near,
                lod_far, flags, static_cast<double>(st[0]), static_cast<double>(st[5]),
                static_cast<double>(mask[0]), static_cast<double>(mask[5]), depth);
        };
        t.BeginPrimitive_f = [](int type, void* r) { add(r, "primitive %d", type); };
        t.AddPatchVertex_f = [](double* c, void* r) { add_point(r, "vertex", c, self(r).depth_); };
        t.EndPrimitive_f = [](void* r) { add(r, "end primitive"); };
        t.EndPatch_f = [](void* r) { add(r, "end patch"); };
        t.AddObject_f = [](unsigned type, double* c, double psi, void* r) {
            add(r, "object %d %.9g %.9g %.9g", static_cast<int>(type), c[0], c[1], psi);
        };
        t.BeginSegment_f = [](unsigned type, unsigned subtype, unsigned node, double* c, bool curved,
                              void* r) {
            add(r, "segment %d %d", static_cast<int>(type), static_cast<int>(subtype));
            add_point(r, "from " + std::to_string(node), c, curved ? 6 : 3);
        };
        t.AddSegmentShapePoint_f = [](double* c, bool curved, void* r) {
            add_point(r, "by", c, curved ? 6 : 3);
        };
        t.EndSegment_f = [](unsigned node, double* c, bool curved, void* r) {
            add_point(r, "to " + std::to_string(node), c, curved ? 6 : 3);
        };
        t.BeginPolygon_f = [](unsigned type, unsigned short parameter, void* r) {
            add(r, "polygon %d %d", static_cast<int>(type), parameter);
        };
        t.BeginPolygonWinding_f = [](void* r) { add(r, "winding"); };
        t.AddPolygonPoint_f = [](double* c, void* r) { add_point(r, "corner", c, 2); };
        t.EndPolygonWinding_f = [](void* r) { add(r, "end winding"); };
        t.EndPolygon_f = [](void* r) { add(r, "end polygon"); };
        return t;
    }

private:
    static tile_record& self(void* ref) { return *static_cast<tile_record*>(ref); }
    template <class... values>
    static void add(void* ref, const char* form, values... v) {
        char text[300];
        if constexpr (sizeof...(v) == 0)
            snprintf(text, sizeof text, "%s", form);
        else
            snprintf(text, sizeof text, form, v...);
        self(ref).lines.push_back(text);
    }
    static void add_point(void* ref, std::string text, const double* c, int count) {
        char number[40];
        for (int i = 0; i < count; ++i) {
            snprintf(number, sizeof number, " %.9g", c[i]);
            text += number;
        }
        self(ref).lines.push_back(text);
    }
    int depth_ = 2;
};

}  // namespace test
