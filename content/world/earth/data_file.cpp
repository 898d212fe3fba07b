// Reading of the committed data.
#include "data_file.h"

#include <zlib.h>

#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

std::string world_data_folder() { return WORLD_DATA_FOLDER "/"; }

std::vector<uint8_t> inflated(const std::string& path, size_t expected_bytes) {
    std::ifstream in(path, std::ios::binary);
    const std::vector<char> packed((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    if (packed.empty()) throw std::runtime_error(path + ": cannot be read");
    std::vector<uint8_t> bytes(expected_bytes ? expected_bytes : packed.size() * 16);
    uLongf size = static_cast<uLongf>(bytes.size());
    const int result = uncompress(bytes.data(), &size, reinterpret_cast<const Bytef*>(packed.data()),
                                  static_cast<uLong>(packed.size()));
    if (result != Z_OK || (expected_bytes && size != expected_bytes))
        throw std::runtime_error(path + ": is damaged");
    bytes.resize(size);
    return bytes;
}

std::vector<std::vector<std::string>> csv_rows(const std::string& path, size_t fields) {
    std::ifstream in(path);
    if (!in) throw std::runtime_error(path + ": cannot be read");
    std::vector<std::vector<std::string>> rows;
    for (std::string line; std::getline(in, line);) {
        if (line.empty() || line[0] == '#') continue;
        std::vector<std::string> row;
        std::istringstream words(line);
        for (std::string word; std::getline(words, word, ',');) row.push_back(word);
        if (row.size() < fields)
            throw std::runtime_error(path + ": line \"" + line.substr(0, 40) + "\" has too few fields");
        rows.push_back(std::move(row));
    }
    return rows;
}
