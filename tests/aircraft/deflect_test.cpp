// Gear and doors on their way, by times and tables of the mechanism; surfaces stand against the air
// reference.
#include "aircraft/deflect.h"

#include "aircraft/design/autoset.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "design.h"

namespace {

class deflect : public test::system_test {
protected:
    void SetUp() override {
        test::system_test::SetUp();
        design::surface(0, 9, {0, 0, 0, 1, 1, 4});
        ACF_autoset(0);
        stg.battery = 1;
        flt[0].engn[0].bat_volt = 1.0f;
        mnw.prd_FM = 1.0f / 64.0f;
    }
    static void run(float seconds) {
        for (int n = intround(seconds * 64.0f); n > 0; --n) update_def_angles(0);
    }
    veh_struct& acf = veh[0];
};

TEST_F(deflect, gear_travels_in_its_time_each_leg_at_its_own_speed) {
    for (int g : {0, 1, 2}) {
        acf.gear[g].gear_type = gear_one;
        acf.gear[g].cyc_time = 10.0f;
        acf.gear[g].leg_len = 2.0f;
        acf.gear[g].lonR = -90.0f;  // retracts forward
        acf.gear[g].gear_z = 1.0f + g;
        acf.gear[g].dep_rat = 1.0f;
    }
    run(1.0f);
    EXPECT_EQ(acf.gear[0].dep_rat, 1.0f);  // fixed, whatever the handle
    EXPECT_NEAR(acf.gear[0].y_nodef, -2.0f, 1e-6f);
    EXPECT_NEAR(flt[0].gear[0].gear_the, -90.0f, 1e-3f);
    acf.gear_retract = 1;
    flt[0].fail_stat[fail_gear + 2] = fail_active;
    float travelled = 0.0f;
    for (int second = 0; second < 5; ++second) {
        mnw.totl_time = 100.0f + second;
        travelled += flt_seedrand(0.5f, 1.5f, 100 + second) / 10.0f;
        run(1.0f);
    }
    EXPECT_NEAR(acf.gear[0].dep_rat, 1.0f - travelled, 1e-3f);
    EXPECT_NE(acf.gear[1].dep_rat, acf.gear[0].dep_rat);
    EXPECT_EQ(acf.gear[2].dep_rat, 1.0f);
    run(30.0f);
    EXPECT_EQ(acf.gear[0].dep_rat, 0.0f);
    EXPECT_NEAR(acf.gear[0].z_nodef, 1.0f - 2.0f, 1e-5f);  // leg forward
    EXPECT_NEAR(acf.gear[0].y_nodef, 0.0f, 1e-5f);
    EXPECT_NEAR(flt[0].gear[0].gear_the, 0.0f, 1e-3f);
    mnw.totl_time = -50.0f;  // replay may run the clock below zero
    flt[0].gear_handle = 1;
    run(31.0f);
    EXPECT_EQ(acf.gear[1].dep_rat, 1.0f);
}

TEST_F(deflect, doors_follow_the_nearest_leg_by_their_kind) {
    acf.gear[3].gear_type = acf.gear[7].gear_type = gear_one;
    acf.gear[3].gear_z = 2.0f;
    acf.gear[7].gear_z = -2.0f;
    acf.gear[3].gear_y = 50.0f;  // height does not count
    for (int type : {door_early, door_with_gear, door_passage}) {
        acf.door[type].type = type;
        acf.door[type].ret_ang = 10.0f;
        acf.door[type].ext_ang = 90.0f;
        acf.door[type].xyz[2] = 1.0f;
    }
    acf.sbrk[1].type = 1;
    acf.sbrk[1].ext_ang = 60.0f;
    const float at[][4] = {{0.0f, 10, 10, 10}, {0.05f, 30, 14, 50}, {0.1f, 50, 18, 90},  {0.2f, 90, 26, 90},
                           {0.5f, 90, 50, 90}, {0.9f, 90, 82, 90},  {0.95f, 90, 86, 50}, {1.0f, 90, 90, 10}};
    for (const auto& row : at) {
        acf.gear[3].dep_rat = row[0];
        acf.gear[7].dep_rat = 0.3f;
        flt[0].sbrk_rat = flt[0].sbrk_rqst = row[0];
        update_def_angles(0);
        for (int type = 1; type <= 3; ++type) EXPECT_NEAR(acf.door[type].ang_now, row[type], 1e-3f) << row[0];
        EXPECT_NEAR(acf.sbrk[1].ang_now, 60.0f * row[0], 1e-3f);
    }
}

TEST_F(deflect, slots_are_bounded) {
    for (int p : {-1, 10})
        EXPECT_EQ(test::expect_fatal([p] { update_def_angles(p); }).line[0], "too many planes!");
}

}  // namespace
