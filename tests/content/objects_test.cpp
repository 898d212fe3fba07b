// The default objects: each loads without a word, with its textures and without a gap between its levels.
#include "core/disk/paths.h"
#include "core/records/ren.h"
#include "draw/images/tex_refs.h"
#include "scenery/objects/object_build.h"
#include "scenery/objects/object_file.h"
#include "scenery/packages/library.h"
#include "support.h"

namespace {
class default_objects : public test::system_test {
protected:
    void SetUp() override {
        system_test::SetUp();
        init_paths(INSTALL_FOLDER);
        ren.FOV = 45.0f;
        clear_objects();
        DSF_ScanSceneryFolder();
    }
};

TEST_F(default_objects, load_with_both_their_textures) {
    for (const char* name : {"NDB_1", "NDB_2", "NDB_3", "VOR", "ILS", "glideslope", "Marker1", "Marker2"})
        EXPECT_EQ(dsf_library.count(std::string("lib/airport/NAVAIDS/") + name + ".obj"), 1u) << name;
    int objects = 0;
    for (const auto& [name, files] : dsf_library) {
        if (files[0].find("Tarvane objects") == std::string::npos) continue;
        const int M = build_obs_lib(name);
        ASSERT_GE(M, 0) << name;
        const vec_mod_struct& mod = vec_mod[M];
        EXPECT_GE(mod.tex_ref_1, tex_free) << name;
        EXPECT_GE(mod.tex_ref_2, tex_free) << name;
        EXPECT_TRUE(mod.cull_radius > 1.0f && mod.cull_radius < 100.0f) << name;
        for (size_t L = 1; L < mod.vec_lod.size(); ++L)
            EXPECT_EQ(mod.vec_lod[L].dis_near_sqr, mod.vec_lod[L - 1].dis_far_sqr) << name << ": a gap";
        ++objects;
    }
    EXPECT_EQ(objects, 310);
    EXPECT_TRUE(test::alerts.empty());
}

}  // namespace
