// Tables of values as they were when somebody last looked at them: a change detector, which tells that
// behaviour has changed, not which is right. Beside it stand the tests against something independent. Role:
// TARVANE_RECORD=1 in the environment writes the tables anew into tests/data/recorded/; who does so reads the
// difference.
#pragma once
#include <map>
#include <string>
#include <vector>

namespace test {

class recorded {
public:
    // Of the table and its file; the share of a value by which it may differ.
    explicit recorded(const std::string& name, double share = 1e-4);
    ~recorded();  // compares with the file, or writes it
    recorded(const recorded&) = delete;
    recorded& operator=(const recorded&) = delete;

    void column(const std::string& label);  // what the values to come belong to
    // A value of the present column. size: from where on it counts in proportion, in its unit. The share
    // is of the value, of its size or of a hundredth of the largest of its row.
    void value(const std::string& name, const std::string& unit, double v, double size);

    // Of a text of the system: each line's letters up to the first colon, and the weighted sum of its
    // numbers.
    void text(const std::string& lines);

private:
    struct row {
        std::string unit;
        double size = 0.0;
        std::vector<double> values;
    };
    std::string name_;
    double share_;
    std::vector<std::string> labels_, order_;
    std::map<std::string, row> rows_;
    void write(const std::string& path) const;
    void compare(const std::string& path) const;
};

}  // namespace test
