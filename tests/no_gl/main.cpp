// Whatever reads files links without OpenGL and without a window system: this program holds all rooms that read, no
// room that draws, and reads one thing of each kind. Calls that go upward end here.
#include <stdio.h>

#include "aircraft/file/acf_file.h"
#include "aircraft/foil/afl_file.h"
#include "core/craft/veh.h"
#include "core/disk/paths.h"
#include "core/math/num.h"
#include "core/program/upward.h"
#include "core/records/con.h"
#include "core/records/env.h"
#include "core/records/records.h"
#include "scenery/ground/tile.h"
#include "scenery/nav/apt_file.h"
#include "scenery/nav/nav_tables.h"
#include "scenery/objects/object_build.h"
#include "scenery/packages/library.h"
#include "scenery/tile/tile_load.h"

void MACIBM_showinit(const char*) {}
void MACIBM_handleclick(int) {}
void APP_handlekey(int, int) {}
void stop_starter() {}
void stop_fire() {}
void TVPEventHook(int, float, float, long, long) {}
int TVPGetNumberPlanesToHandle(int num_acf, int) { return num_acf; }
void shift_camera_spot(const double*) {}

namespace {
int faults = 0;
void expect(bool good, const char* what) {
    if (good) return;
    printf("%s cannot be read\n", what);
    ++faults;
}
}  // namespace

int main() {
    clear_records();
    init_paths(INSTALL_FOLDER);
    init_con();
    con.planet_rad = 6378145.0f;  // Earth; the weather, which sets it, reads no file

    const std::string craft = "Aircraft:General Aviation:Wren 160 Trainer:Wren 160.acf";
    snprintf(veh[0].path, sizeof veh[0].path, "%s", (app_path + craft).c_str());
    expect(acf_read_record(0) && veh[0].num_engines == 1, "an aircraft");
    DSF_ScanSceneryFolder();
    expect(build_obs_lib("lib/airport/NAVAIDS/NDB_1.obj") >= 0, "an object");
    expect(IO_apt(0, "") && vec_apt.size() > 1000, "the airports");
    env.lat_sou = 33;
    env.lon_wes = -121;
    read_env(34, 1, -118, 3);  // no file: water
    expect(!xdeg[3][1].tex_layers.empty() && !xdeg[3][1].ytest_buckets.Empty(), "a tile");
    finish_degree(&xdeg[3][1]);
    xcam.SetupPerspective(90.0, 1.0, 1.0, 1e7);
    xcam.LookAtPtFromPt({0.0, 0.0, 0.0}, {0.0, 1e6, 0.0}, {0.0, 0.0, -1.0});
    expect(xdeg[3][1].visibles.Cull(&xcam, &xdeg[3][1]) > 0, "what is seen of a tile");
    return faults ? 1 : 0;
}
