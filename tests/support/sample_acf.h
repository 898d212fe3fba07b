// A twin jet that uses every kind of part, as text. Sound by all checks.
#pragma once

inline constexpr const char* sample_acf_toml = R"(
[identity]
tailnum = "N80TV"
author = "J. Müller \"tester\""
descrip = "twin jet"
ICAO = "TVJ2"

[speeds]
Vso_kts = 92.5
Vne_kts = 330
Gneg = 1.5
Gpos = 3.8

[weights]
cgY = 1.25
cgZ = 18.1
m_empty = 9000
m_fuel_tot = 3000
m_max = 14000

[tanks]
num_tanks = 2
tank_rat = [0.5, 0.5]
tank_xyz = [[-6, 0, 18.1], [6, 0, 18.1]]

[engines]
num_engines = 2
num_thrustpoints = 2
throt_max_FWD = 1
thrust_max = 3500
face_jet = 4.2

[controls]
ail1_up = 20
elev_up = 25
sbrk_up = 60

[flaps]
flap_detents = 3
fla1_type = 4
fla1_dn = [0, 10, 20, 35]

[[engine]]
engn_type = "jet_high_bypass"
part_x = -5
part_y = 2
part_z = 28

[[engine]]
engn_type = "jet_high_bypass"
part_x = 5
part_y = 2
part_z = 28

[surface.wing1_right]
part_x = 2.5
part_y = -0.5
part_z = 15
part_tex = 1
top_s2 = 0.5
foil_root = "thick.afl"
foil_tip = "thin.afl"
els = 8
Croot = 8
Ctip = 4
semilen_SEG = 22
dihed1 = 3
sweep1 = 20
incidence = [2, 1.5, 1, 0.5, 0, -0.5, -1, -1.5]
ail1 = [0, 0, 0, 0, 0, 0, 1, 1]
fla1 = [1, 1, 1, 1]
slat = [0, 1]

[surface.hstab_right]
part_y = 8
part_z = 40
foil = "flat.afl"
els = 4
Croot = 5
Ctip = 3
semilen_SEG = 8
inc_trim = [1, 1, 1, 1]
elev = [1, 1, 1, 1]

[surface.vstab1]
part_z = 38
foil = "flat.afl"
els = 5
Croot = 7
Ctip = 5
semilen_SEG = 7
dihed1 = 90
rud1 = [0, 1, 1, 1]

[surface.surface20]
part_x = 1
part_z = 4
foil = "flat.afl"
els = 2
Croot = 2
Ctip = 2
semilen_SEG = 3
is_left = 1

[surface.pylon_upper0]
part_eq = 1
part_x = -4
part_y = 2.5
part_z = 27
foil = "flat.afl"
els = 1
Croot = 4
Ctip = 4
semilen_SEG = 1

[body.fuselage]
cd = 0.08
stations = [
  { z = 0, y = -0.5, w = 0.1, h = 0.1 },
  { z = 6, w = 3, h = 3.2, n = 2.5 },
  { z = 42, y = 1, w = 0.3, h = 0.4 },
]

[body.nacelle0]
part_eq = 1
cd = 0.1

[[gear]]
gear_type = "two_abreast"
tire_radius = 0.8
steers = true
leg_len = 4
stat_def = 0.5
gear_z = 6

[[gear]]
gear_type = "one"
tire_radius = 1.2
leg_len = 5
latE = 10
gear_x = 6
gear_y = -1
gear_z = 20

[[door]]
type = "with_gear"
ext_ang = 90

[[speedbrake]]
type = "early"
area = 6

[[weapon]]
slot = 3
watt_name = "tank.wpn"
watt_prt = 9

[[instrument]]
type = 557
x = 300
y = 200

[[instrument]]
type = 133
x = 400

[[instrument]]
type = 134
x = 500
size = 0.75
)";
