// What the gallery shows, as lines of scenes (tools/scene_view).
#pragma once

constexpr const char* gallery_scenes[] = {
    // KSBD's runway 06 from the airliner's seat
    "runway       start=runway aircraft=Shearwater day=172 hour=8.2 vis=30 fov=55",
    "final        lat=34.0895 lon=-117.2560 height=470 heading=65 pitch=-6 day=172 hour=17.0 vis=30 fov=45",
    "dusk         lat=34.10 lon=-117.35 height=900 heading=300 pitch=-7 day=80 hour=18.4 vis=25 lamps=1",
    "mountains    lat=34.08 lon=-116.70 height=3300 heading=275 pitch=-3 day=80 hour=6.12 vis=60",
    "coast        lat=34.035 lon=-118.56 height=500 heading=290 pitch=-7 day=172 hour=12 vis=30",
    "desert       lat=33.60 lon=-116.10 height=500 heading=300 pitch=-1 day=80 hour=16.8 vis=50",
    "night        lat=33.98 lon=-117.75 height=1500 heading=75 pitch=-9 day=76 hour=20.6 vis=40",
    "rain         lat=34.05 lon=-117.45 height=700 heading=70 pitch=-3 day=20 hour=13 vis=6 "
    "clouds=5,1400,3200 rain=0.9",
    "high         lat=34.0 lon=-118.3 height=11500 heading=70 pitch=-3 day=172 hour=17.6 vis=60 "
    "aircraft=Shearwater "
    "orbit=200,6,130",
    "orbit        lat=31.0 lon=-114.0 height=420000 heading=320 pitch=-24 day=172 hour=8.0 vis=25",
    "mars         planet=mars lat=-9.0 lon=-76.0 height=4300 heading=290 pitch=-4 day=80 hour=15.5 vis=60",
};
