#include "recorded.h"

#include <ctype.h>
#include <gtest/gtest.h>
#include <math.h>
#include <stdlib.h>
#include <string.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <sstream>

namespace test {

recorded::recorded(const std::string& name, double share) : name_(name), share_(share) {}

recorded::~recorded() {
    const std::string path = SOURCE_FOLDER "tests/data/recorded/" + name_ + ".txt";
    const char* anew = getenv("TARVANE_RECORD");
    if (anew && std::string(anew) == "1")
        write(path);
    else
        compare(path);
}

void recorded::column(const std::string& label) {
    labels_.push_back(label);
    for (auto& [name, r] : rows_) r.values.resize(labels_.size());
}

void recorded::value(const std::string& name, const std::string& unit, double v, double size) {
    const auto [place, is_new] = rows_.try_emplace(name);
    if (is_new) {
        order_.push_back(name);
        place->second = {unit, size, std::vector<double>(labels_.size())};
    }
    place->second.values.back() = v;
}

void recorded::text(const std::string& lines) {
    std::map<std::string, double> sums;
    std::istringstream in(lines);
    for (std::string line; getline(in, line);) {
        line.resize(std::min(line.find("(/"), line.size()));  // a path is of this machine
        std::string label = line.substr(0, line.find(':'));
        label.erase(std::remove_if(label.begin(), label.end(), [](char c) { return !isalpha(c); }),
                    label.end());
        double& sum = sums[label.empty() ? "ruler" : label.substr(0, 60)];
        for (char& c : line)
            if (strchr(",;()", c)) c = ' ';
        std::istringstream words(line);
        double weight = 1.0, number;
        for (std::string word; words >> word;)
            if (std::istringstream(word) >> number) sum += (weight += 1.0) * number;
        sum += 1.0;
    }
    for (const auto& [label, sum] : sums) value(label, "-", sum, 0.1);
}

static bool all_zero(const std::vector<double>& values) {
    return std::all_of(values.begin(), values.end(), [](double v) { return v == 0.0; });
}

// A line of labels, then a line for each value that is not always zero: its name, its unit, the columns.
void recorded::write(const std::string& path) const {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream out(path);
    const auto row = [&](const std::string& name, const std::string& unit, const auto& cells) {
        out << std::left << std::setw(23) << name << ' ' << std::setw(6) << unit << ' ' << std::right;
        for (const auto& cell : cells) out << ' ' << std::setw(11) << cell;
        out << '\n';
    };
    out << std::setprecision(share_ < 1e-4 ? 8 : 6);
    row("name", "unit", labels_);
    for (const std::string& name : order_)
        if (const auto& r = rows_.at(name); !all_zero(r.values)) row(name, r.unit, r.values);
}

void recorded::compare(const std::string& path) const {
    std::ifstream in(path);
    ASSERT_TRUE(in) << "no " << path << ": TARVANE_RECORD=1 writes it";
    std::string text, name, unit, cell;
    getline(in, text);
    std::istringstream head(text);
    head >> name >> unit;
    std::vector<std::string> labels;
    while (head >> cell) labels.push_back(cell);
    ASSERT_EQ(labels, labels_) << path;
    auto left = rows_;
    int differ = 0;
    while (getline(in, text)) {
        std::istringstream words(text);
        words >> name >> unit;
        std::vector<double> then;
        while (words >> cell) then.push_back(strtod(cell.c_str(), nullptr));
        const auto found = left.find(name);
        ASSERT_TRUE(found != left.end() && then.size() == labels_.size()) << path << ": " << name;
        double largest = 0.0;
        for (const double v : then) largest = std::max(largest, fabs(v));
        for (size_t i = 0; i < then.size(); ++i) {
            const double now = found->second.values[i];
            if (fabs(now - then[i]) <= share_ * std::max({fabs(then[i]), found->second.size, 0.01 * largest}))
                continue;
            if (++differ <= 20)
                ADD_FAILURE() << name_ << ", " << labels_[i] << ": " << name << " is " << now << ' ' << unit
                              << ", was " << then[i];
        }
        left.erase(found);
    }
    for (const auto& [unseen, r] : left)
        EXPECT_TRUE(all_zero(r.values)) << name_ << ": " << unseen << " was zero";
}

}  // namespace test
