// What is seen on the Moon: names, places and sizes of its seas and craters (Gazetteer of Planetary
// Nomenclature, IAU and USGS), longitudes east; brightness and rays as any photograph shows them.
#pragma once

struct moon_sea {
    const char* name;
    double lat, lon;            // degrees
    double half_lon, half_lat;  // km on the ground
    double turn;                // of the long axis, counter-clockwise, degrees
    double depth;               // how dark, 0 to 1
};

struct moon_crater {
    const char* name;
    double lat, lon;  // degrees
    double diameter;  // km
    double floor;     // brightness of its floor against its surroundings, 0 the same
    double rays;      // length of its rays, in its radii; 0 none
    double ray_strength;
};

// Irregular seas stand in several rows.
constexpr moon_sea moon_seas[] = {
    {"Imbrium", 33.5, -16.5, 560, 520, 0, 0.95},
    {"Imbrium, south-west", 24.0, -26.0, 330, 250, 20, 0.85},
    {"Imbrium, west", 33.0, -37.0, 260, 330, 0, 0.90},
    {"Serenitatis", 27.8, 18.0, 335, 300, 0, 0.92},
    {"Tranquillitatis", 8.8, 30.5, 400, 270, 15, 1.00},
    {"Tranquillitatis, west", 6.0, 22.5, 190, 170, 0, 0.95},
    {"Tranquillitatis, north-east", 15.5, 36.0, 190, 170, 0, 0.92},
    {"Tranquillitatis, the strait to Serenitatis", 18.5, 24.5, 130, 100, 0, 0.92},
    {"Tranquillitatis, the strait to Fecunditatis", 2.5, 41.5, 150, 110, -30, 0.85},
    {"Sinus Amoris", 19.5, 38.0, 90, 120, 0, 0.75},
    {"Sinus Asperitatis", -4.5, 27.5, 100, 110, 0, 0.75},
    {"Crisium", 17.0, 59.0, 285, 215, 0, 0.98},
    {"Fecunditatis", -4.5, 50.5, 310, 300, 0, 0.85},
    {"Fecunditatis, south", -14.5, 52.0, 150, 200, 0, 0.75},
    {"Nectaris", -15.2, 34.6, 185, 185, 0, 0.88},
    {"Nubium", -20.5, -15.5, 320, 260, 10, 0.80},
    {"Humorum", -24.4, -38.6, 220, 220, 0, 0.92},
    {"Cognitum", -10.5, -22.5, 200, 170, 0, 0.82},
    {"Insularum", 6.5, -29.5, 250, 210, 0, 0.62},
    {"Insularum, around Copernicus", 9.5, -19.0, 190, 170, 0, 0.52},
    {"Insularum, south", -2.0, -24.0, 230, 160, 0, 0.68},
    {"Vaporum", 13.3, 3.8, 150, 130, 0, 0.82},
    {"Sinus Medii", 1.8, 0.5, 150, 70, 10, 0.68},
    {"Sinus Aestuum", 11.5, -8.5, 130, 120, 0, 0.78},
    {"Frigoris", 56.5, -8.0, 440, 75, 3, 0.72},
    {"Frigoris, west", 57.0, -32.0, 300, 90, -6, 0.75},
    {"Frigoris, east", 54.5, 20.0, 330, 65, -8, 0.68},
    {"Sinus Iridum", 44.6, -31.5, 120, 110, 0, 0.92},
    {"Sinus Roris", 52.0, -52.0, 240, 180, -30, 0.82},
    {"Procellarum, north", 40.0, -56.0, 430, 330, 70, 0.92},
    {"Procellarum", 22.0, -57.5, 420, 480, 0, 0.97},
    {"Procellarum, middle", 6.0, -50.0, 430, 330, 0, 0.95},
    {"Procellarum, south", -5.0, -43.0, 380, 210, -10, 0.88},
    {"Procellarum, south-west", -9.0, -52.0, 190, 180, 0, 0.75},
    {"Palus Epidemiarum", -31.5, -28.0, 130, 70, 0, 0.62},
    {"Lacus Somniorum", 37.5, 30.0, 190, 100, 15, 0.62},
    {"Lacus Mortis", 45.0, 27.2, 75, 70, 0, 0.50},
    {"Palus Somni", 14.0, 45.0, 110, 130, 0, 0.30},
    {"Undarum", 7.5, 68.5, 120, 80, 30, 0.62},
    {"Spumans", 1.2, 65.0, 75, 70, 0, 0.62},
    {"Anguis", 22.5, 67.5, 70, 100, 30, 0.55},
    {"Marginis", 13.5, 85.5, 200, 180, 0, 0.70},
    {"Smythii", -1.5, 86.5, 190, 185, 0, 0.78},
    {"Humboldtianum", 57.0, 80.5, 130, 120, 0, 0.75},
    {"Australe", -42.0, 88.0, 330, 300, 0, 0.48},
    {"Grimaldi", -5.4, -68.4, 88, 85, 0, 1.00},
    {"Riccioli", -2.5, -74.3, 45, 40, 0, 0.60},
    {"Plato", 51.6, -9.4, 50, 50, 0, 1.05},
    {"Schickard", -44.0, -55.0, 75, 70, 0, 0.40},
    {"Endymion", 53.9, 57.0, 58, 58, 0, 0.80},
    {"Langemak", -10.0, 80.0, 60, 60, 0, 0.20},
};

// The brightest is Aristarchus; the rays of Tycho cross a quarter of the disc.
constexpr moon_crater moon_craters[] = {
    {"Tycho", -43.3, -11.4, 86, 0.10, 40, 1.00},     {"Copernicus", 9.6, -20.1, 96, 0.28, 11, 0.95},
    {"Kepler", 8.1, -38.0, 30, 0.42, 20, 0.85},      {"Aristarchus", 23.7, -47.4, 40, 0.60, 12, 0.75},
    {"Proclus", 16.1, 46.9, 27, 0.42, 18, 0.60},     {"Langrenus", -8.9, 61.0, 132, 0.20, 5, 0.45},
    {"Stevinus A", -31.8, 51.6, 20, 0.45, 26, 0.65}, {"Furnerius A", -33.5, 59.0, 16, 0.45, 24, 0.60},
    {"Anaxagoras", 73.5, -10.2, 52, 0.28, 16, 0.60}, {"Byrgius A", -24.5, -63.8, 19, 0.45, 26, 0.55},
    {"Olbers A", 8.1, -77.6, 44, 0.28, 14, 0.55},    {"Zucchius", -61.4, -50.7, 63, 0.12, 7, 0.30},
    {"Menelaus", 16.3, 16.0, 27, 0.42, 8, 0.35},     {"Manilius", 14.4, 9.1, 38, 0.36, 4, 0.35},
    {"Dionysius", 2.8, 17.3, 18, 0.50, 7, 0.35},     {"Messier A", -1.9, 47.0, 13, 0.40, 16, 0.30},
    {"Euclides", -7.4, -29.5, 12, 0.50, 5, 0.55},    {"Lansberg D", -3.0, -30.6, 10, 0.40, 5, 0.45},
    {"Timocharis", 26.7, -13.1, 34, 0.28, 4, 0.35},  {"Pytheas", 20.5, -20.6, 20, 0.32, 4, 0.35},
    {"Euler", 23.3, -29.2, 27, 0.28, 5, 0.35},       {"Autolycus", 30.7, 1.5, 39, 0.22, 4, 0.30},
    {"Aristillus", 33.9, 1.2, 55, 0.22, 5, 0.40},    {"Theophilus", -11.4, 26.4, 100, 0.14, 3, 0.25},
    {"Eudoxus", 44.3, 16.3, 67, 0.14, 2, 0.20},      {"Aristoteles", 50.2, 17.4, 87, 0.10, 2, 0.20},
    {"Bullialdus", -20.7, -22.2, 61, 0.20, 3, 0.25}, {"Taruntius", 5.6, 46.5, 56, 0.18, 3, 0.25},
    {"Thales", 61.8, 50.3, 32, 0.32, 12, 0.45},      {"Geminus", 34.5, 56.7, 86, 0.10, 3, 0.20},
    {"Petavius B", -19.9, 57.1, 33, 0.28, 8, 0.35},  {"Bessel", 21.8, 17.9, 16, 0.35, 4, 0.25},
    {"Plinius", 15.4, 23.7, 43, 0.20, 2, 0.15},      {"Harpalus", 52.6, -43.4, 39, 0.22, 4, 0.25},
    {"Mairan", 41.6, -43.4, 40, 0.10, 0, 0},         {"Reiner", 7.0, -54.9, 30, 0.10, 0, 0},
    {"Marius", 11.9, -50.8, 41, 0.0, 0, 0},          {"Archimedes", 29.7, -4.0, 83, -0.20, 0, 0},
    {"Eratosthenes", 14.5, -11.3, 58, 0.10, 0, 0},   {"Posidonius", 31.8, 29.9, 95, 0.02, 0, 0},
    {"Atlas", 46.7, 44.4, 87, -0.08, 0, 0},          {"Hercules", 46.7, 39.1, 69, -0.12, 0, 0},
    {"Cleomedes", 27.7, 55.5, 125, 0.0, 0, 0},       {"Macrobius", 21.3, 46.0, 64, 0.05, 0, 0},
    {"Gassendi", -17.6, -40.1, 110, 0.0, 0, 0},      {"Letronne", -10.8, -42.5, 116, 0.0, 0, 0},
    {"Ptolemaeus", -9.2, -1.8, 153, -0.05, 0, 0},    {"Alphonsus", -13.4, -2.8, 119, -0.04, 0, 0},
    {"Arzachel", -18.2, -1.9, 96, 0.04, 0, 0},       {"Purbach", -25.5, -1.9, 118, 0.0, 0, 0},
    {"Walther", -33.0, 0.7, 140, 0.0, 0, 0},         {"Deslandres", -32.5, -5.2, 234, -0.03, 0, 0},
    {"Albategnius", -11.2, 4.1, 136, 0.0, 0, 0},     {"Hipparchus", -5.5, 4.8, 150, 0.0, 0, 0},
    {"Cyrillus", -13.2, 24.0, 98, 0.0, 0, 0},        {"Catharina", -18.0, 23.6, 100, 0.0, 0, 0},
    {"Fracastorius", -21.2, 33.0, 124, -0.10, 0, 0}, {"Piccolomini", -29.7, 32.2, 88, 0.05, 0, 0},
    {"Maurolycus", -41.8, 14.0, 114, 0.0, 0, 0},     {"Stofler", -41.1, 6.0, 126, 0.0, 0, 0},
    {"Maginus", -50.0, -6.2, 194, 0.0, 0, 0},        {"Clavius", -58.4, -14.4, 225, 0.0, 0, 0},
    {"Longomontanus", -49.5, -21.7, 145, 0.0, 0, 0}, {"Wilhelm", -43.1, -20.8, 107, 0.0, 0, 0},
    {"Moretus", -70.6, -5.5, 114, 0.0, 0, 0},        {"Pitatus", -29.8, -13.5, 97, -0.10, 0, 0},
    {"Schiller", -51.8, -40.0, 110, 0.0, 0, 0},      {"Vendelinus", -16.3, 61.8, 147, 0.0, 0, 0},
    {"Petavius", -25.3, 60.4, 177, 0.03, 0, 0},      {"Furnerius", -36.3, 60.4, 125, 0.0, 0, 0},
    {"Janssen", -44.9, 41.5, 190, 0.0, 0, 0},        {"Hevelius", 2.2, -67.3, 106, 0.0, 0, 0},
    {"Aliacensis", -30.6, 5.2, 80, 0.0, 0, 0},       {"Werner", -28.0, 3.3, 70, 0.06, 0, 0},
    {"Philolaus", 72.1, -32.4, 70, 0.05, 0, 0},      {"Pythagoras", 63.5, -62.8, 130, 0.0, 0, 0},
    {"J. Herschel", 62.0, -42.0, 165, 0.0, 0, 0},    {"Scoresby", 77.7, 14.1, 56, 0.0, 0, 0},
};
