// Stream files: header, byte order, line ends, numbers and words.
#include "core/disk/files.h"

#include <fcntl.h>
#include <unistd.h>

#include <bit>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <vector>

#include "core/disk/paths.h"
#include "core/program/alert.h"
#include "core/records/mnw.h"

// The native form is written as it lies in memory and marked "i".
static_assert(std::endian::native == std::endian::little);

std::ifstream inf[2];
int inf_use = 0;
std::ofstream ouf;
int rev_inf_bin = 0;
int extra_char_eoln = 0;
std::string copyright_apt, copyright_nav;

bool ftype_is_bin(int ftype) {
    switch (ftype) {
        case ftype_acf:
        case ftype_wpn:
        case ftype_tra:
        case ftype_car:
        case ftype_spa:
        case ftype_png:
        case ftype_env:
        case ftype_prf:
            return true;
        default:
            return false;
    }
}

void rev_byte_order4(unsigned char* word) {
    std::swap(word[0], word[3]);
    std::swap(word[1], word[2]);
}

// -- input
namespace {
struct input_struct {
    std::string path;
    bool binary = false;
    bool reversed = false;
    bool two_char_eoln = false;
};
input_struct inputs[2];  // beside inf[]: a file may be opened while the other is half read
constexpr int no_byte = std::char_traits<char>::eof();

std::ifstream& in() { return inf[inf_use]; }
input_struct& input() { return inputs[inf_use]; }

// The buffer throws when the disk fails; for the readers that is the end of the file.
int peek_byte() {
    int c = no_byte;
    try {
        c = in().rdbuf()->sgetc();
    } catch (const std::ios_base::failure&) {
        in().setstate(std::ios::badbit);
    }
    if (c == no_byte) in().setstate(std::ios::eofbit);
    return c;
}
void skip_byte() { in().rdbuf()->sbumpc(); }
int next_byte() {
    const int c = peek_byte();
    if (c != no_byte) skip_byte();
    return c;
}

bool is_eoln(int c) { return c == '\r' || c == '\n'; }
bool is_blank(int c) { return c == ' ' || c == '\t'; }
bool is_white(int c) { return is_blank(c) || is_eoln(c) || c == '\v' || c == '\f'; }
bool is_sign(int c) { return c == '-' || c == '+'; }
bool is_exponent(int c) { return c == 'e' || c == 'E'; }

// Past the line end at the position. Only the other half of a pair counts as the second character, so
// that one line with a single line end does not swallow the start of the next.
void skip_eoln() {
    const int first = next_byte();
    if (!input().two_char_eoln) return;
    const int second = peek_byte();
    if (is_eoln(second) && second != first) skip_byte();
}

bool read_word32(uint32_t& word) {
    char bytes[4];
    in().read(bytes, sizeof bytes);
    if (in().gcount() != sizeof bytes) return false;
    memcpy(&word, bytes, sizeof word);
    if (input().reversed) word = __builtin_bswap32(word);
    return true;
}

// The longest run of characters at the next word that can start a number. More than any sensible number
// has means that it is none.
struct number_text {
    char text[128];
    size_t n = 0;
    const char* start() const { return text[0] == '+' ? text + 1 : text; }  // from_chars knows no plus
    const char* end() const { return text + n; }
};
bool read_number_text(number_text& number, bool whole) {
    while (is_white(peek_byte())) skip_byte();
    for (int c = peek_byte(), before = no_byte;; before = c, c = peek_byte()) {
        const bool fits = isdigit(c) || (is_sign(c) && (number.n == 0 || is_exponent(before))) ||
                          (!whole && (c == '.' || is_exponent(c)));
        if (!fits) break;
        if (number.n == sizeof number.text - 1) return false;
        number.text[number.n++] = static_cast<char>(next_byte());
    }
    number.text[number.n] = 0;
    return number.n > 0;
}

bool read_text_int(int& value) {
    number_text number;
    if (!read_number_text(number, true)) return false;
    const auto [stop, fault] = std::from_chars(number.start(), number.end(), value);
    return fault == std::errc() && stop == number.end();
}

bool read_text_float(float& value) {
    number_text number;
    if (!read_number_text(number, false)) return false;
    const auto [stop, fault] = std::from_chars(number.start(), number.end(), value);
    if (stop != number.end()) return false;
    // what is too small for a float is 0 or denormal, what is too large is no number
    if (fault == std::errc::result_out_of_range)
        value = strtof(number.start(), nullptr);
    else if (fault != std::errc())
        return false;
    return std::isfinite(value);
}

void scan_error() { MACIBM_alert(mnw.top_win, "File-scanning error!", input().path, "", "", alert_fatal); }

// The first byte, and for text its line end; leaves the position on the version.
bool read_marker(bool version_follows) {
    const int marker = next_byte();
    if (input().binary) {
        input().reversed = marker == 'a';
        return marker == 'a' || marker == 'i';
    }
    if (marker != 'A' && marker != 'I') return false;
    const int first = next_byte(), second = peek_byte();
    input().two_char_eoln = version_follows ? !isdigit(second) : is_eoln(second) && second != first;
    if (input().two_char_eoln) skip_byte();
    return true;
}

bool read_version(int& version) {
    if (!input().binary) return read_text_int(version);
    uint32_t word;
    if (!read_word32(word)) return false;
    version = static_cast<int>(word);
    return true;
}
}  // namespace

int inf_open(const std::string& path, int ftype, int version, int alert_bad_version) {
    inf_close();
    if (path.size() > path_len_max) return 0;
    const std::string real_path = set_dir_chars(path);
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(real_path, ignored)) return 0;
    in().open(real_path, std::ios::binary);
    if (!in().is_open()) return 0;
    input() = {path, ftype_is_bin(ftype)};
    if (!read_marker(version > 0)) {
        inf_close();
        return 0;
    }
    if (version > 0 || input().binary) {
        int found = 0;
        const bool readable = read_version(found);
        if (version > 0 && (!readable || found != version)) {
            inf_close();
            if (alert_bad_version)
                MACIBM_alert(mnw.top_win,
                             "The following file is the wrong version for this version of Tarvane:", path,
                             "Throw that file away.", "You may have to re-install Tarvane to get a good one.",
                             alert_message);
            return 0;
        }
    }
    rev_inf_bin = input().reversed;
    extra_char_eoln = input().two_char_eoln;
    return 1;
}

void inf_close() {
    in().close();
    in().clear();
}

void read_n_rev(void* add1, long del_add) {
    static std::vector<char> bytes;  // main thread only; keeps a torn last word out of the record
    bytes.resize(static_cast<size_t>(del_add));
    in().read(bytes.data(), del_add);
    const size_t whole = static_cast<size_t>(in().gcount()) / 4 * 4;
    if (input().reversed)
        for (size_t i = 0; i < whole; i += 4) rev_byte_order4(reinterpret_cast<unsigned char*>(&bytes[i]));
    memcpy(add1, bytes.data(), whole);
}

int int_scan() {
    int value = 0;
    if (!read_version(value)) scan_error();
    return value;
}

float flt_scan() {
    float value = 0.0f;
    if (!read_text_float(value)) scan_error();
    return value;
}

std::string str_scan() {
    std::string word;
    while (is_white(peek_byte())) skip_byte();
    while (peek_byte() != no_byte && !is_white(peek_byte())) word += static_cast<char>(next_byte());
    return word;
}

std::string str_scan_to_EOL() {
    std::string text;
    while (is_blank(peek_byte())) skip_byte();
    while (peek_byte() != no_byte && !is_eoln(peek_byte())) text += static_cast<char>(next_byte());
    skip_eoln();
    return text;
}

void lin_scan() {
    while (peek_byte() != no_byte && !is_eoln(peek_byte())) skip_byte();
    skip_eoln();
}

// -- output
namespace {
std::string beside_target;  // where ouf_replace moves the file that ouf_open_beside writes

std::string with_low_extension(std::string path) {
    for (size_t i = path.size() > 3 ? path.size() - 3 : 0; i < path.size(); ++i)
        path[i] = static_cast<char>(tolower(static_cast<unsigned char>(path[i])));
    return path;
}

int save_failed(const std::string& path) {
    MACIBM_alert(
        mnw.top_win,
        "I could not save the file! Could the directory that the file sits in be missing? Or flagged as "
        "READ-ONLY by the operating system? (Windows machines typically do",
        path, "Could the file be flagged as read-only? This happens in Windows if you copy it from a CD!",
        "Try putting this stg.in the background and then flag the file as NOT read-only, or creating the "
        "folder listed in the path above.",
        alert_message);
    return 0;
}

void write_header(int ftype, int version) {
    if (ftype_is_bin(ftype)) {
        char bytes[4];
        memcpy(bytes, &version, sizeof bytes);
        ouf.put('i').write(bytes, sizeof bytes);
        return;
    }
    const std::string text = ftype == ftype_apt   ? copyright_apt
                             : ftype == ftype_nav ? copyright_nav
                                                  : "version";
    ouf << "I\n" << version << ' ' << text << '\n';
}

// Writes reach the disk before the name does, or a crash could leave an empty file under it.
bool flush_to_disk(const std::string& real_path) {
    const int fd = open(real_path.c_str(), O_RDONLY);
    if (fd < 0) return false;
    const bool done = fsync(fd) == 0;
    close(fd);
    return done;
}
}  // namespace

int ouf_open(const std::string& path, int ftype, int version) {
    const std::string low = with_low_extension(path);
    ouf.close();
    ouf.clear();
    if (low.size() <= path_len_max) ouf.open(set_dir_chars(low), std::ios::binary | std::ios::trunc);
    if (!ouf.is_open()) return save_failed(low);
    write_header(ftype, version);
    return 1;
}

int ouf_close() {
    ouf.close();  // flushes; a failure of either sets the fail bit
    const bool written = ouf.good();
    ouf.clear();
    return written;
}

int ouf_open_beside(const std::string& path, int ftype, int version) {
    beside_target = with_low_extension(path);
    return ouf_open(beside_target + ".new", ftype, version);
}

int ouf_replace() {
    const std::string written = set_dir_chars(beside_target + ".new");
    if (ouf_close() && flush_to_disk(written) &&
        rename(written.c_str(), set_dir_chars(beside_target).c_str()) == 0)
        return 1;
    unlink(written.c_str());
    return save_failed(beside_target);
}
