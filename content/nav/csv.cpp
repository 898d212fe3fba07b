// Comma-separated text with quotes.
#include "csv.h"

#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstring>
#include <fstream>
#include <iterator>

std::vector<csv_row> csv_rows(std::string_view text) {
    std::vector<csv_row> rows;
    csv_row row;
    std::string field;
    bool quoted = false, any = false;
    if (text.substr(0, 3) == "\xEF\xBB\xBF") text.remove_prefix(3);
    const auto end_field = [&] {
        row.push_back(field);
        field.clear();
    };
    const auto end_row = [&] {
        end_field();
        if (any) rows.push_back(row);
        row.clear();
        any = false;
    };
    for (size_t n = 0; n < text.size(); ++n) {
        const char c = text[n];
        if (quoted) {
            if (c != '"')
                field += c;
            else if (n + 1 < text.size() && text[n + 1] == '"')
                field += text[++n];
            else
                quoted = false;
        } else if (c == '"' && field.empty()) {
            quoted = any = true;
        } else if (c == ',') {
            end_field();
            any = true;
        } else if (c == '\n') {
            end_row();
        } else if (c != '\r' || n + 1 >= text.size() || text[n + 1] != '\n') {
            field += c;
            any |= c != ' ' && c != '\r';
        }
    }
    end_row();
    return rows;
}

const std::string& csv_table::field(const csv_row& row, int column) const {
    static const std::string empty;
    return column >= 0 && static_cast<size_t>(column) < row.size() ? row[static_cast<size_t>(column)] : empty;
}

int csv_table::column(std::string_view name) const {
    for (size_t n = 0; n < columns.size(); ++n)
        if (columns[n] == name) return static_cast<int>(n);
    return -1;
}

bool csv_read(const std::string& path, const std::vector<const char*>& needed, csv_table& table,
              std::vector<int>& numbers, std::string& fault) {
    std::ifstream in(path, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(in), {}};
    if (!in) {
        fault = "cannot read " + path + ": " + strerror(errno);
        return false;
    }
    table.path = path;
    table.rows = csv_rows(text);
    if (table.rows.empty()) {
        fault = path + " is empty";
        return false;
    }
    table.columns = table.rows.front();
    table.rows.erase(table.rows.begin());
    numbers.clear();
    for (const char* name : needed) {
        numbers.push_back(table.column(name));
        if (numbers.back() < 0) {
            fault = path + " has no column \"" + name + "\"";
            return false;
        }
    }
    return true;
}

double csv_number(const std::string& field, double missing) {
    const char* at = field.data();
    const char* end = at + field.size();
    while (at < end && *at == ' ') ++at;
    while (end > at && end[-1] == ' ') --end;
    if (at < end && *at == '+') ++at;
    double value = 0;
    const auto [stop, code] = std::from_chars(at, end, value);
    return code == std::errc() && stop == end && std::isfinite(value) ? value : missing;
}
