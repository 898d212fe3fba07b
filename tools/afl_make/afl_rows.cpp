// Measured rows beyond the stall: read from the source of a foil, checked, laid over the generated tables.
#include "afl_rows.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>

#include "aircraft/foil/afl_polar.h"
#include "core/math/num.h"

const char* const rows_help =
    "Beyond the stall measured rows may stand in place of the generated curves, from the stall on in "
    "straight\n"
    "lines: rows = [[alpha, lift, drag, moment], ...], by rising alpha from -180 to 180, and beyond_stall =\n"
    "\"NAME\" for the rows of beyond_stall/NAME.toml outside of those; there mirrored = true lets positive\n"
    "angles stand for negative ones too. Neighbours may differ by at most 0.5 in lift, 0.15 in drag\n"
    "and 0.12 in moment for each degree between them.\n";

namespace {

// Steepest lines between neighbours, per degree. The sharpest stalls lose 0.45 of lift in a degree and the
// moment of reversed flow turns over at 0.07; a slipped decimal point makes more.
constexpr float cl_steepest = 0.5f, cd_steepest = 0.15f, cm_steepest = 0.12f;
constexpr float cl_largest = 3.0f, cd_least = 0.001f, cd_largest = 3.0f, cm_largest = 1.0f;

std::string number(float value) {
    char text[32];
    std::snprintf(text, sizeof text, "%g", static_cast<double>(value));
    return text;
}

std::string name_of(const row_struct& row) { return "the row at " + number(row.alpha) + " degrees"; }

bool read_row(const toml::node& node, row_struct& row) {
    const toml::array* numbers = node.as_array();
    if (!numbers || numbers->size() != 4) return false;
    float* const value[] = {&row.alpha, &row.cl, &row.cd, &row.cm};
    for (size_t i = 0; i < 4; ++i) {
        const toml::node& number = *numbers->get(i);
        if (!number.is_number()) return false;
        *value[i] = static_cast<float>(*number.value<double>());
        if (!std::isfinite(*value[i])) return false;
    }
    return true;
}

// The array "rows" of a table, which has to rise and to lie within what a section can give.
std::vector<row_struct> read_array(const toml::table& table, std::vector<std::string>& faults) {
    std::vector<row_struct> rows;
    const toml::node* node = table.get("rows");
    if (!node) return rows;
    const toml::array* list = node->as_array();
    if (!list) {
        faults.push_back("rows is not a list of rows");
        return rows;
    }
    for (const toml::node& item : *list) {
        row_struct row{};
        if (!read_row(item, row)) {
            faults.push_back("row " + std::to_string(rows.size() + 1) +
                             " is not [alpha, lift, drag, moment] in numbers");
            return rows;
        }
        if (std::fabs(row.alpha) > 180.0f || std::fabs(row.cl) > cl_largest || row.cd < cd_least ||
            row.cd > cd_largest || std::fabs(row.cm) > cm_largest)
            faults.push_back(name_of(row) + " lies out of range");
        if (!rows.empty() && !(row.alpha > rows.back().alpha))
            faults.push_back(name_of(row) + " follows one at " + number(rows.back().alpha) +
                             ": the rows have to rise");
        rows.push_back(row);
    }
    return rows;
}

std::vector<row_struct> read_shared(const std::string& path, std::vector<std::string>& faults) {
    std::vector<row_struct> rows;
    try {
        const toml::table table = toml::parse_file(path);
        for (const auto& [name, node] : table)
            if (name != "rows" && name != "mirrored")
                faults.push_back(path + ": unknown key \"" + std::string(name.str()) + "\"");
        rows = read_array(table, faults);
        if (!table["mirrored"].value_or(false)) return rows;
        for (size_t i = rows.size(); i-- > 0;) {
            const row_struct& r = rows[i];
            if (r.alpha > 0.0f) rows.push_back({-r.alpha, 0.0f - r.cl, r.cd, 0.0f - r.cm});
        }
    } catch (const toml::parse_error& error) {
        faults.push_back(path + ": " + std::string(error.description()));
    }
    return rows;
}

// The last entries within the stalls.
int entry_of_almin(const afl_struct& a) {
    int i = 160;
    while (ret_alpha(i) < a.almin[0][0] - 0.01f) ++i;
    return i;
}

int entry_of_almax(const afl_struct& a) {
    int i = 560;
    while (ret_alpha(i) > a.almax[0][0] + 0.01f) --i;
    return i;
}

row_struct entry(const afl_struct& a, int i) {
    return {ret_alpha(i), a.cl[0][0][i], a.cd[0][0][i], a.cm[0][0][i]};
}

void check_step(const row_struct& from, const row_struct& to, std::vector<std::string>& faults) {
    const float degrees = to.alpha - from.alpha;
    if (std::fabs(to.cl - from.cl) > cl_steepest * degrees ||
        std::fabs(to.cd - from.cd) > cd_steepest * degrees ||
        std::fabs(to.cm - from.cm) > cm_steepest * degrees)
        faults.push_back("a jump between " + number(from.alpha) + " and " + number(to.alpha) + " degrees");
}

}  // namespace

std::vector<row_struct> read_rows(const toml::table& source, const std::string& path,
                                  std::vector<std::string>& faults) {
    std::vector<row_struct> rows = read_array(source, faults);
    const toml::node* shared = source.get("beyond_stall");
    if (!shared) return rows;
    if (!shared->is_string()) {
        faults.push_back("beyond_stall is not the name of a table");
        return rows;
    }
    const std::filesystem::path folder = std::filesystem::path(path).parent_path() / "beyond_stall";
    const std::string name = *shared->value<std::string>();
    const float first = rows.empty() ? 0.0f : rows.front().alpha,
                last = rows.empty() ? 0.0f : rows.back().alpha;
    for (const row_struct& row : read_shared((folder / (name + ".toml")).string(), faults))
        if (row.alpha < fltmin2(first, 0.0f) || row.alpha > fltmax2(last, 0.0f)) rows.push_back(row);
    std::sort(rows.begin(), rows.end(),
              [](const row_struct& a, const row_struct& b) { return a.alpha < b.alpha; });
    return rows;
}

void check_rows(const std::vector<row_struct>& rows, const afl_struct& foil,
                std::vector<std::string>& faults) {
    const float almin = foil.almin[0][0], almax = foil.almax[0][0];
    for (const row_struct& row : rows)
        if (row.alpha >= almin && row.alpha <= almax)
            faults.push_back(name_of(row) + " does not lie beyond the stall");
    const row_struct &first = rows.front(), &last = rows.back();
    if (first.alpha != -180.0f || last.alpha != 180.0f)
        faults.push_back("the rows have to reach from -180 to 180 degrees");
    else if (first.cl != last.cl || first.cd != last.cd || first.cm != last.cm)
        faults.push_back("the rows at -180 and 180 degrees are not the same");
    if (!faults.empty()) return;
    const row_struct low = entry(foil, entry_of_almin(foil)), high = entry(foil, entry_of_almax(foil));
    for (size_t i = 0; i + 1 < rows.size(); ++i) {
        const row_struct &from = rows[i], &to = rows[i + 1];
        const bool across = from.alpha < 0.0f && to.alpha > 0.0f;
        check_step(from, across ? low : to, faults);
        if (across) check_step(high, to, faults);
    }
}

void apply_rows(const std::vector<row_struct>& rows, afl_struct& foil) {
    const int low = entry_of_almin(foil), high = entry_of_almax(foil);
    std::vector<row_struct> line = rows;
    const auto middle =
        std::find_if(line.begin(), line.end(), [](const row_struct& r) { return r.alpha > 0.0f; });
    line.insert(line.insert(middle, entry(foil, high)), entry(foil, low));
    size_t next = 1;
    for (int i = 0; i < aflDIM; ++i) {
        if (i >= low && i <= high) continue;
        const float alpha = ret_alpha(i);
        while (line[next].alpha < alpha) ++next;
        const row_struct &a = line[next - 1], &b = line[next];
        foil.cl[0][0][i] = interp(a.alpha, a.cl, b.alpha, b.cl, alpha);
        foil.cd[0][0][i] = interp(a.alpha, a.cd, b.alpha, b.cd, alpha);
        foil.cm[0][0][i] = interp(a.alpha, a.cm, b.alpha, b.cm, alpha);
    }
}
