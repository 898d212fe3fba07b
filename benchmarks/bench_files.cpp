// Reading: aircraft files in both byte orders against copying their bytes, the text scanners against a
// search through the same bytes, and the price of making a path openable.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "../tests/support/sample_acf.h"
#include "aircraft/file/acf_file.h"
#include "aircraft/file/acf_toml_read.h"
#include "aircraft/io_acf.h"
#include "core/disk/paths.h"
#include "core/disk/txtscan.h"
#include "core/records/con.h"

namespace {
class scratch_folder {
public:
    scratch_folder() : path_("/tmp/tarvane-bench-" + std::to_string(getpid()) + "/") {
        std::filesystem::create_directory(path_);
    }
    ~scratch_folder() { std::filesystem::remove_all(path_); }
    std::string write(const std::string& name, const std::string& bytes) const {
        std::ofstream(path_ + name, std::ios::binary) << bytes;
        return path_ + name;
    }

private:
    std::string path_;
};
const scratch_folder folder;

std::string sample_file() {
    init_con();
    std::string error;
    acf_from_toml(folder.write("s.toml", sample_acf_toml), 1, &error);
    const std::string path = folder.write("s.acf", "");
    strcpy(veh[1].path, path.c_str());
    IO_acf(1, 1, 0);
    return path;
}

// The same file of the other byte order. Texts come out scrambled, which costs the same.
std::string reversed_file() {
    std::ifstream in(sample_file(), std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(in), {}};
    bytes[0] = 'a';
    for (size_t at = 1; at + 3 < bytes.size(); at += 4)
        std::reverse(bytes.begin() + static_cast<long>(at), bytes.begin() + static_cast<long>(at) + 4);
    return folder.write("big.acf", bytes);
}

void read_file(benchmark::State& state, const std::string& path) {
    for (auto _ : state) {
        strcpy(veh[2].path, path.c_str());
        benchmark::DoNotOptimize(acf_read_record(2));
    }
}
void acf_bytes_copied(benchmark::State& state) {
    const std::string from(acf_file_size, 'x');
    std::string to(acf_file_size, 'y');
    for (auto _ : state) {
        memcpy(to.data(), from.data(), from.size());
        benchmark::ClobberMemory();
    }
}
void acf_read(benchmark::State& state) { read_file(state, sample_file()); }
void acf_read_swapped(benchmark::State& state) { read_file(state, reversed_file()); }
void acf_load(benchmark::State& state) {
    const std::string path = sample_file();
    for (auto _ : state) {
        strcpy(veh[2].path, path.c_str());
        benchmark::DoNotOptimize(IO_acf(0, 2, 0));
    }
}
BENCHMARK(acf_bytes_copied);
BENCHMARK(acf_read);
BENCHMARK(acf_read_swapped);
BENCHMARK(acf_load);

// A table like those of the navaids.
std::string table() {
    std::string lines;
    for (int i = 0; i < 100000; ++i)
        lines += "3  48.12345678  -122.65432100    412 11630 130 -16.5 PAE  PAINE FIELD VOR\n";
    return lines;
}
void lines_searched(benchmark::State& state) {
    const std::string text = table();
    for (auto _ : state) {
        size_t lines = 0;
        for (size_t at = 0; (at = text.find('\n', at)) != std::string::npos; ++at) ++lines;
        benchmark::DoNotOptimize(lines);
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}
void lines_scanned(benchmark::State& state) {
    const std::string text = table();
    const map_bytes bytes = reinterpret_cast<map_bytes>(text.data());
    const int c_max = static_cast<int>(text.size());
    std::string word;
    for (auto _ : state) {
        int c = 0;
        float sum = 0.0f;
        while (TXT_MAP_continue(bytes, &c, c_max)) {
            TXT_MAP_int_scan(bytes, &c, c_max);
            sum += TXT_MAP_flt_scan(bytes, &c, c_max) + TXT_MAP_flt_scan(bytes, &c, c_max);
            for (int field = 0; field < 3; ++field) TXT_MAP_int_scan(bytes, &c, c_max);
            sum += TXT_MAP_flt_scan(bytes, &c, c_max);
            TXT_MAP_str_scan_space(bytes, &c, c_max, &word);
            TXT_MAP_str_scan_eoln(bytes, &c, c_max, &word);
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}
BENCHMARK(lines_searched);
BENCHMARK(lines_scanned);

void path_as_on_disk(benchmark::State& state) {
    const std::string path = folder.write("Name.png", "");
    for (auto _ : state) benchmark::DoNotOptimize(set_dir_chars(path));
}
void path_of_other_case(benchmark::State& state) {
    std::string path = folder.write("Name.png", "");
    path[path.size() - 8] = 'n';
    for (auto _ : state) benchmark::DoNotOptimize(set_dir_chars(path));
}
BENCHMARK(path_as_on_disk);
BENCHMARK(path_of_other_case);
}  // namespace

BENCHMARK_MAIN();
