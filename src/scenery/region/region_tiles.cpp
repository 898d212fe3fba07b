// Filling and clearing a region.
#include "scenery/region/region_tiles.h"

#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/records/records.h"
#include "draw/widgets/menus.h"
#include "scenery/ground/runways.h"
#include "scenery/ground/tile.h"
#include "scenery/old/old_env.h"
#include "scenery/region/region_lists.h"
#include "scenery/region/region_places.h"
#include "scenery/seam/scenery_draw.h"
#include "scenery/tile/tile_default.h"
#include "scenery/tile/tile_edge.h"
#include "scenery/tile/tile_load.h"

static bool left_out_files = false;
bool region_left_out_files() { return left_out_files; }

void IO_env(int IO_type, int lat_file, int lat_os, int lon_file, int lon_os) {
    constexpr float ceiling_ft = 100000.0f;  // from there on nobody sees what lies on the ground
    lat_file = intlim(lat_file, -90, 90);
    lon_file = intwrap(lon_file, -179, 180);
    if (IO_type != 0) {
        MACIBM_alert(mnw.top_win, "Scenery files of this kind cannot be saved!", "", "", "", alert_message);
        return;
    }
    xdeg_struct* const degree = &xdeg[lon_os][lat_os];
    clear_degree(degree);
    left_out_files = !(flt[0].y_agl_mtr * con.mtrstoft < ceiling_ft);
    if (!left_out_files)
        read_env(lat_file, lat_os, lon_file, lon_os);
    else
        make_def_env(lat_file, lat_os, lon_file, lon_os);
    finish_degree(degree);
}

void clear_region() {
    constexpr int region_menus = 3;
    left_out_files = false;
    for (const int ref : old_cus_texes) scenery_draw.unload_texture(ref);
    old_cus_texes.clear();
    clear_strips();
    handle_edge(0, 0, nullptr, nullptr, edge_clear);
    MACIBM_clear_menus(region_menus);
}

const region_steps_struct region_of_scenery = {clear_region, IO_env, finish_region, place_fires_and_boats};
