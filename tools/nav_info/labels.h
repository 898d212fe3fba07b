// Names beside what they name, none over another.
#pragma once
#include <vector>

#include "sheet.h"

class labels {
public:
    explicit labels(sheet& on) : on_(on) {}
    // Where no name may stand, and where it would rather not.
    void keep_free(const box& b) { taken_.push_back(b); }
    void avoid(const box& b) { pavement_.push_back(b); }
    bool is_free(const box& b) const;
    // Beside a sign of this radius, with a line to it where the nearest places are taken. Left out, and
    // counted, when there is no place at all.
    void name(const point& at, double radius, const std::string& words, double size, unsigned rgb);
    int left_out() const { return left_out_; }

private:
    double cost(const box& b) const;
    sheet& on_;
    std::vector<box> taken_, pavement_;
    int left_out_ = 0;
};
