// Writes a world as the four tables that the simulator reads.
#include "nav_write.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <tuple>

#include "nav_geo.h"

namespace fs = std::filesystem;

namespace {
__attribute__((format(printf, 2, 3))) void put(std::string& out, const char* format, ...) {
    char line[400];
    va_list list;
    va_start(list, format);
    vsnprintf(line, sizeof line, format, list);
    va_end(list);
    out += line;
}

// Six decimals of a degree are a tenth of a metre, finer than the simulator's floats; and never "-0".
std::string degrees(double value) {
    char text[40];
    snprintf(text, sizeof text, "%.6f", value);
    return strcmp(text, "-0.000000") == 0 ? "0.000000" : text;
}

std::string at(nav_place p) { return degrees(p.lat) + " " + degrees(p.lon); }

// A heading that rounds to 360 is north.
double heading(double psi, double unit) {
    const double rounded = std::round(psi / unit) * unit;
    return rounded >= 360 - unit / 2 ? 0 : rounded;
}

long whole(double value) { return std::lround(value); }

std::string header(const char* version, const std::string& origin) {
    return std::string("I\n") + version + " " + origin + "\n";
}

void put_runway(std::string& out, const nav_runway& r) {
    put(out, "10 %s %s %.2f %ld %d.%04d %d.%04d %ld %06d %d %d %d %.2f %d\n", at(r.at).c_str(), r.num.c_str(),
        heading(r.psi, 0.01), whole(r.len), r.disp[0], r.disp[1], r.blast[0], r.blast[1], whole(r.width),
        r.lights[0] * 1000 + r.lights[1], r.surface, r.shoulder, r.markings, r.roughness, r.signs);
}

void put_airport(std::string& out, const nav_airport& a) {
    constexpr int first_frequency_row = 50;
    put(out, "%d %ld %d 0 %s %s\n", a.type, whole(a.ele), a.tower, a.id.c_str(), a.name.c_str());
    for (const nav_runway& r : a.runways) put_runway(out, r);
    if (a.has_viewpoint) put(out, "14 %s %ld 0 Tower\n", at(a.viewpoint).c_str(), whole(a.viewpoint_height));
    for (const nav_ramp& r : a.ramps)
        put(out, "15 %s %.1f %s\n", at(r.at).c_str(), heading(r.psi, 0.1), r.name.c_str());
    if (a.beacon) put(out, "18 %s %d Beacon\n", at(a.beacon_at).c_str(), a.beacon);
    for (const nav_windsock& s : a.windsocks) put(out, "19 %s %d Windsock\n", at(s.at).c_str(), s.lit);
    for (int service = 0; service < nav_service_DIM; ++service)
        if (a.frequency[service].frq)
            put(out, "%d %d %s\n", first_frequency_row + service, a.frequency[service].frq,
                a.frequency[service].name.c_str());
    out += '\n';
}

bool own_table(const fs::path& path) {
    std::ifstream in(path);
    std::string line;
    std::getline(in, line);
    std::getline(in, line);
    const size_t blank = line.find(' ');
    return blank != std::string::npos && line.compare(blank + 1, strlen(built_origin), built_origin) == 0;
}

bool write_whole(const fs::path& path, const std::string& text) {
    const int out = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (out < 0) return false;
    size_t done = 0;
    while (done < text.size()) {
        const ssize_t more = write(out, text.data() + done, text.size() - done);
        if (more <= 0) break;
        done += static_cast<size_t>(more);
    }
    const bool synced = fsync(out) == 0;
    return close(out) == 0 && synced && done == text.size();
}

// A second name for the old table, or a copy where the file system knows no links. Both refuse a name in use.
bool keep_old(const fs::path& path, std::string* kept) {
    for (int n = 1; n < 10000; ++n) {
        fs::path backup = path;
        backup += ".old" + std::to_string(n);
        std::error_code fault;
        if (fs::exists(fs::symlink_status(backup, fault))) continue;
        fs::create_hard_link(path, backup, fault);
        if (fault) {
            fault.clear();
            fs::copy_file(path, backup, fs::copy_options::none, fault);
        }
        if (fault) return false;
        *kept = backup.string();
        return true;
    }
    return false;
}
}  // namespace

void sort_aids(nav_world& world) {
    const auto key = [](const nav_aid& a) {
        return std::tie(a.type, a.name, a.id, a.frq, a.at.lat, a.at.lon, a.psi);
    };
    std::stable_sort(world.aids.begin(), world.aids.end(),
                     [&](const nav_aid& a, const nav_aid& b) { return key(a) < key(b); });
}

table_texts nav_tables_text(const nav_world& world, const std::string& origin) {
    table_texts t = {header("715", origin), header("740", origin), header("600", origin),
                     header("640", origin)};
    for (const nav_airport& a : world.airports) put_airport(t.apt, a);
    for (const nav_aid& a : world.aids) {
        const double psi = a.type == aid_glide ? a.psi
                           : a.type == aid_dme ? a.psi
                                               : heading(wrap_heading(a.psi), 0.01);
        put(t.nav, "%d %s %ld %d %ld %.2f %s %s\n", a.type, at(a.at).c_str(), whole(a.ele), a.frq,
            whole(a.range), psi, a.id.c_str(), a.name.c_str());
    }
    for (const nav_fix& f : world.fixes) put(t.fix, "%s %s\n", at(f.at).c_str(), f.name.c_str());
    for (const nav_leg& l : world.legs)
        put(t.awy, "%s %s %s %s %d 0 %s\n", l.end[0].c_str(), at(l.at[0]).c_str(), l.end[1].c_str(),
            at(l.at[1]).c_str(), l.level, l.name.c_str());
    for (std::string* table : {&t.apt, &t.nav, &t.fix, &t.awy}) *table += "99\n";
    return t;
}

bool write_nav_tables(const table_texts& tables, const fs::path& folder, std::vector<std::string>* backups,
                      std::string* fault) {
    struct one_table {
        const char* name;
        const std::string* text;
    };
    const one_table all[] = {{"apt.dat", &tables.apt},
                             {"nav.dat", &tables.nav},
                             {"fix.dat", &tables.fix},
                             {"awy.dat", &tables.awy}};
    const std::string suffix = ".new" + std::to_string(getpid());
    const auto failed = [&](const fs::path& path, const char* what) {
        *fault = std::string(what) + " " + path.string() + ": " + strerror(errno);
        for (const one_table& table : all) unlink((folder / (table.name + suffix)).c_str());
        return false;
    };
    std::error_code made;
    fs::create_directories(folder, made);
    if (made) {
        *fault = "cannot make the folder " + folder.string() + ": " + made.message();
        return false;
    }
    for (const one_table& table : all) {
        const fs::path path = folder / (table.name + suffix);
        if (!write_whole(path, *table.text)) return failed(path, "cannot write");
    }
    for (const one_table& table : all) {
        const fs::path path = folder / table.name;
        std::string kept;
        if (fs::exists(path, made) && !own_table(path)) {
            if (!keep_old(path, &kept)) return failed(path, "cannot keep a copy of");
            backups->push_back(kept);
        }
        if (rename((folder / (table.name + suffix)).c_str(), path.c_str()) != 0)
            return failed(path, "cannot replace");
    }
    return true;
}
