// The table of fixed objects.
#include "scene/fixed/fixed_objects.h"

#include "core/program/alert.h"
#include "core/records/ren.h"
#include "scenery/objects/object_build.h"

namespace {
std::string number_name(int number) {
    const int wrapped = (number + 35) % 36 + 1;  // 1 to 36
    return (wrapped < 10 ? "0" : "") + std::to_string(wrapped);
}

// A runway's number alone and by letter, then both ends on the sign where aircraft hold.
void add_taxi_signs(std::vector<fixed_object>* to, int w) {
    const std::string n = number_name(w), r = number_name(w + 18);
    const std::string names[sign_kindDIM] = {n,
                                             n + "L",
                                             n + "C",
                                             n + "R",
                                             n + "_" + r + "_hold",
                                             n + "L_" + r + "R_hold",
                                             n + "C_" + r + "C_hold",
                                             n + "R_" + r + "L_hold"};
    for (int kind = 0; kind < sign_kindDIM; ++kind)
        to->push_back({"lib/airport/taxi_signs/" + names[kind] + ".obj", &ren.M_taxi_sign[w][kind]});
}
}  // namespace

std::vector<fixed_object> list_fixed_objects() {
    const std::string landscape = "lib/airport/landscape/";
    std::vector<fixed_object> all = {
        {landscape + "beacon1.obj", &ren.M_beacon1},
        {landscape + "beacon2.obj", &ren.M_beacon2},
        {landscape + "beacon3.obj", &ren.M_beacon3},
        {landscape + "buoy.obj", &ren.M_bouy},
        {landscape + "powerline_tower.obj", &ren.M_powerline},
        {landscape + "windsock_pole.obj", &ren.M_windsock_pole},
        {landscape + "windsock_sock.obj", &ren.M_windsock_sock},
    };
    for (int k = 0; k < 3; ++k)
        all.push_back({"lib/airport/taxi_signs/dis_remain_" + std::to_string(k + 1) + ".obj",
                       &ren.M_dis_remaining[k]});
    for (int w = 0; w < sign_numberDIM; ++w) add_taxi_signs(&all, w);
    return all;
}

void load_fixed_objects() {
    const faults_of_file gather("Resources/default scenery");
    for (const fixed_object& object : list_fixed_objects()) {
        *object.index = build_obs_lib(object.path);
        if (*object.index < 0) MACIBM_data_fault("Could not open object!", object.path, "", "");
    }
}
