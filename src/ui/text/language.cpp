// Language files. A line that cannot be read is told and left out; what would leave the program without its
// texts ends it.
#include "ui/text/language.h"

#include <charconv>
#include <climits>
#include <cstdint>
#include <string_view>
#include <vector>

#include "core/disk/mapfile.h"
#include "core/disk/paths.h"
#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/program/logs.h"
#include "core/program/upward.h"
#include "core/records/mnw.h"
#include "core/records/stl.h"
#include "draw/widgets/menus.h"
#include "scenery/ground/region.h"
#include "ui/text/korean.h"

namespace {
// The last is spelled as the folders have it.
constexpr const char* folders[languageDIM] = {
    "english:", "french:", "german:", "italian:", "spanish:", "korean:", "portugese:"};

std::string language_folder() {
    return folders[intrange(mnw.lang, 0, languageDIM - 1) ? mnw.lang : lang_english];
}

// -- lines
bool is_blank(char c) { return c == ' ' || c == '\t'; }
bool is_eoln(char c) { return c == '\r' || c == '\n'; }

std::string_view without_blanks(std::string_view text) {
    while (!text.empty() && is_blank(text.front())) text.remove_prefix(1);
    return text;
}

// Lines of a mapped file, whatever ends them.
class line_reader {
public:
    explicit line_reader(const XMappedFile& file)
        : rest_(reinterpret_cast<const char*>(file.begin()), file.size()) {
        constexpr std::string_view utf8_mark = "\xEF\xBB\xBF";
        if (rest_.substr(0, utf8_mark.size()) == utf8_mark) rest_.remove_prefix(utf8_mark.size());
    }
    // False at the end of the file.
    bool next(std::string_view& line) {
        if (rest_.empty()) return false;
        size_t end = 0;
        while (end < rest_.size() && !is_eoln(rest_[end])) ++end;
        line = rest_.substr(0, end);
        if (rest_.substr(end, 2) == "\r\n") ++end;
        rest_.remove_prefix(end < rest_.size() ? end + 1 : end);
        return true;
    }
    // True with the line when it holds more than blanks.
    bool next_filled(std::string_view& line) { return next(line) && !without_blanks(line).empty(); }

private:
    std::string_view rest_;
};

struct numbered_line {
    int64_t number;  // beyond 64 bits the greatest or least there is
    std::string_view text;
};

// A number, blanks, and the rest of the line.
bool split(std::string_view line, numbered_line& out) {
    line = without_blanks(line);
    const auto [stop, error] = std::from_chars(line.data(), line.data() + line.size(), out.number);
    if (error == std::errc::invalid_argument) return false;
    if (error == std::errc::result_out_of_range) out.number = line[0] == '-' ? INT64_MIN : INT64_MAX;
    const size_t length = static_cast<size_t>(stop - line.data());
    if (length < line.size() && !is_blank(line[length])) return false;
    out.text = without_blanks(line.substr(length));
    return true;
}

// -- faults
void tell_line(const char* what, const std::string& path, std::string_view line) {
    constexpr size_t shown = 80;
    MACIBM_data_fault(what, path, std::string(line.substr(0, shown)), "I go on without that line.");
}

void fatal(const char* what, const std::string& path, const char* advice = "") {
    MACIBM_alert(mnw.top_win, what, path, advice, "", alert_fatal);
}

// -- strings
// False ends the file.
bool take_text(const std::string& path, std::string_view line, std::vector<char>& taken) {
    numbered_line in;
    if (without_blanks(line).empty()) return true;
    if (!split(line, in)) {
        tell_line("A line of the text file has no number!", path, line);
        return true;
    }
    if (in.number < 0) return false;
    if (in.number >= textDIM) {
        fatal("Too many text strings!", path);
        return false;
    }
    std::string& text = stl.text[in.number];
    if (taken[in.number]) {
        MACIBM_alert(mnw.top_win, "Trying to read a text string we already have!", text, "", "", alert_fatal);
        return false;
    }
    if (in.text.size() > text_len_max)
        tell_line("A line of the text file is too long!", path, line);
    else
        text = in.text;
    taken[in.number] = 1;
    return true;
}

void log_free_index(const std::string& path) {
    int lowest = 0;
    while (lowest < textDIM && !stl.text[lowest].empty()) ++lowest;
    xer << path << " lowest free text index=" << (lowest < textDIM ? lowest : 9999) << '\n';
}

}  // namespace

void MACIBM_read_texts() {
    const std::string path = txt_path + language_folder() + "Tarvane.txt";
    for (std::string& text : stl.text) text.clear();
    XMappedFile file;
    if (!file.retry(set_dir_chars(path).c_str())) return fatal("Could not open text file!", path);
    line_reader lines(file);
    std::vector<char> taken(textDIM);
    const faults_of_file faults(path);
    std::string_view line;
    while (lines.next(line) && take_text(path, line, taken)) {
    }
    log_free_index(path);
}

// -- menus
namespace {
std::string menu_text(std::string_view text) {
    return stl.glyph_text ? char_string_to_int_string(std::string(text)) : std::string(text);
}

// The bar, or an entry of an earlier menu, so that no menu hangs on itself.
bool parent_exists(int64_t parent, int m) {
    if (parent == 0) return true;
    const int64_t above = parent / menu_itemDIM;
    if (parent < 0 || above >= m || above >= menuDIM) return false;
    return static_cast<size_t>(parent % menu_itemDIM) < menu[above].item.size();
}

// Entries up to an empty line; for a menu that could not be made they are passed over.
void read_entries(line_reader& lines, const std::string& path, int m, bool made) {
    std::string_view line;
    for (int i = 0; lines.next_filled(line);) {
        numbered_line in;
        if (!made) continue;
        if (!split(line, in) || in.number < 0 || in.number > INT_MAX)
            tell_line("An entry of the menu file has no code!", path, line);
        else
            MACIBM_append_menu(m, i++, static_cast<int>(in.number), menu_text(in.text), 0);
    }
}
}  // namespace

void MACIBM_read_menus(const std::string& name) {
    // without their glyphs Korean menus could not be read
    const bool is_plain = mnw.lang == lang_korean && !stl.glyph_text;
    const std::string path = men_path + (is_plain ? folders[lang_english] : language_folder()) + name;
    XMappedFile file;
    if (!file.retry(set_dir_chars(path).c_str()))
        return fatal("Cannot open file!", path, "Trash this copy and re-install Tarvane.");
    line_reader lines(file);
    const faults_of_file faults(path);
    std::string_view line;
    lines.next(line);  // says what the file is
    for (int m = 0; lines.next_filled(line); ++m) {
        numbered_line in;
        const bool made = split(line, in) && parent_exists(in.number, m);
        if (made)
            MACIBM_create_menu(m, static_cast<int>(in.number), menu_text(in.text));
        else
            tell_line("A menu of the menu file has no parent!", path, line);
        read_entries(lines, path, m, made);
    }
}

void MACIBM_setupforlang(int hard_reset) {
    if (hard_reset) load_plane(0);
    stl.glyph_text = mnw.lang == lang_korean && load_korean_glyphs();
    MACIBM_clear_menus(2);
    MACIBM_read_menus("Tarvane.txt");
    MACIBM_read_texts();
    if (hard_reset) {
        load_region(1);
        init_flt_0(start_airport, place_runway);
        begin_user_flight_steady(start_airport);
    }
}
