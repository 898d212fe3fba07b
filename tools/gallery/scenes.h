// What the gallery shows, as lines of scenes (tools/scene_view).
#pragma once

constexpr const char* gallery_scenes[] = {
    // KSBD's runway 06 from behind the trainer
    "runway       start=runway aircraft=Wren orbit=0,10,16 day=172 hour=9.2 vis=30 fov=55",
    "final        lat=34.0807 lon=-117.2692 height=475 heading=71 pitch=-4 day=172 hour=8.0 vis=30 fov=50",
    "dusk         lat=34.06 lon=-117.42 height=620 heading=60 roll=-14 pitch=-6 day=80 hour=18.25 vis=25 aircraft=Wren "
    "orbit=20,12,16 lamps=1",
    "mountains    lat=34.10 lon=-116.95 height=3300 heading=85 pitch=-4 day=80 hour=6.3 vis=50",
    "coast        lat=33.66 lon=-118.12 height=420 heading=312 pitch=-5 day=172 hour=12 vis=30",
    "desert       lat=33.75 lon=-116.35 height=900 heading=330 pitch=-5 day=172 hour=17.3 vis=40 aircraft=Dunlin "
    "orbit=25,10,24",
    "night        lat=33.98 lon=-117.75 height=1500 heading=75 pitch=-9 day=76 hour=20.6 vis=40",
    "rain         lat=34.05 lon=-117.45 height=700 heading=70 pitch=-3 day=20 hour=13 vis=6 clouds=5,1400,3200 rain=0.9",
    "high         lat=34.0 lon=-118.3 height=11500 heading=70 pitch=-3 day=172 hour=18.6 vis=60 aircraft=Shearwater "
    "orbit=30,6,130",
    "orbit        lat=31.0 lon=-114.0 height=420000 heading=320 pitch=-24 day=172 hour=8.0 vis=25",
    "mars         planet=mars lat=-9.0 lon=-76.0 height=4300 heading=290 pitch=-4 day=80 hour=15.5 vis=60",
};
