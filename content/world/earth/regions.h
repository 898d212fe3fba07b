// Outlines of deserts, farmed country and the like.
#pragma once
#include <string>
#include <vector>

enum region_kind : int {
    region_desert,
    region_dunes,
    region_irrigated,
    region_moist,
    region_plains,
    region_ice,
    region_kinds_DIM
};

class regions {
public:
    explicit regions(const std::string& path);
    // 1 well within a region of the kind, 0 well outside, straight between within `soft` degrees of its
    // outline.
    double part(region_kind kind, double lat, double lon, double soft) const;

private:
    struct corner {
        double lat, lon;
    };
    struct outline {
        region_kind kind;
        double south = 90, west = 180, north = -90, east = -180;
        std::vector<corner> corners;
    };
    std::vector<outline> outlines_;
};
