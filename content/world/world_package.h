// A scenery package in the making: its folder, and its files where the loader looks for them.
#pragma once
#include <string>

#include "ground_pictures.h"
#include "tile_borders.h"
#include "tile_writer.h"

class world_package {
public:
    explicit world_package(const std::string& folder);

    // NAME.ter with its picture, which repeats every so many metres. with_border: as an overlay it has a
    // soft edge.
    void add_ground(ground kind, int repeat_metres, bool with_border = false);
    // The objects of land_objects.h, to be placed as NAME.obj; exported as lib/countryside/NAME.obj.
    void add_land_objects();
    // woods.for of oaks, and country_road.net, whose road has the subtype of country_road.
    void add_woods();
    void add_road();
    // Its borders must meet those of the neighbours that are there already.
    void add_tile(const tile_writer& tile, bool is_mars = false);

    // What add_ground makes: "grass.ter".
    static std::string ground_name(ground kind);

private:
    std::string folder_, textures_, objects_, object_textures_;
    tile_borders borders_;
};

constexpr unsigned char country_road = 20;
