// text_make: compiles the tables of strings and menus into the language files, and the header that names the
// strings. It stands alone: the library needs that header before it can be built.
#include <toml++/toml.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "core/craft/dims.h"
#include "core/records/stl.h"
#include "draw/widgets/menus.h"

namespace fs = std::filesystem;

namespace {
enum exit_code : int { exit_good = 0, exit_bad_table = 1, exit_bad_usage = 2 };

const char* const usage =
    "text_make texts TEXTS.toml FOLDER      compile the strings into FOLDER/LANGUAGE/Tarvane.txt\n"
    "text_make menus MENUS.toml FOLDER      compile the menus likewise\n"
    "text_make header TEXTS.toml HEADER     write the header that names the strings\n"
    "text_make check TEXTS.toml HEADER      only compare it\n"
    "text_make --help                       show this text\n"
    "\n"
    "Letters with accents become what the fonts draw: ASCII 32 to 124.\n"
    "Exit status: 0 good, 1 fault in the table or another header, 2 wrong use.\n";

struct language_row {
    const char* key;     // in the tables
    const char* folder;  // as the program looks for it
};
constexpr language_row languages[] = {{"en", "english"},  {"fr", "french"},  {"de", "german"},
                                      {"it", "italian"},  {"es", "spanish"}, {"ko", "korean"},
                                      {"pt", "portugese"}};
constexpr int language_count = sizeof languages / sizeof *languages;
constexpr int english = 0, german = 2, korean = 5;

// -- faults
std::string table_path;
int faults = 0;

void fault(const toml::node& where, const std::string& text) {
    fprintf(stderr, "%s:%d: %s\n", table_path.c_str(), static_cast<int>(where.source().begin.line),
            text.c_str());
    ++faults;
}

// -- letters
struct letter_row {
    const char* written;
    const char* drawn;
};
constexpr letter_row german_letters[] = {{"ä", "ae"}, {"ö", "oe"}, {"ü", "ue"},
                                         {"Ä", "Ae"}, {"Ö", "Oe"}, {"Ü", "Ue"}};
constexpr letter_row letters[] = {
    {"à", "a"},  {"á", "a"},  {"â", "a"}, {"ã", "a"}, {"ä", "a"}, {"ç", "c"},  {"è", "e"},  {"é", "e"},
    {"ê", "e"},  {"ë", "e"},  {"ì", "i"}, {"í", "i"}, {"î", "i"}, {"ï", "i"},  {"ñ", "n"},  {"ò", "o"},
    {"ó", "o"},  {"ô", "o"},  {"õ", "o"}, {"ö", "o"}, {"ù", "u"}, {"ú", "u"},  {"û", "u"},  {"ü", "u"},
    {"œ", "oe"}, {"ß", "ss"}, {"À", "A"}, {"Ä", "A"}, {"Ë", "E"}, {"Ï", "I"},  {"Ö", "O"},  {"Ü", "U"},
    {"Á", "A"},  {"Â", "A"},  {"Ã", "A"}, {"Ç", "C"}, {"È", "E"}, {"É", "E"},  {"Ê", "E"},  {"Ì", "I"},
    {"Í", "I"},  {"Î", "I"},  {"Ñ", "N"}, {"Ò", "O"}, {"Ó", "O"}, {"Ô", "O"},  {"Õ", "O"},  {"Ù", "U"},
    {"Ú", "U"},  {"Û", "U"},  {"¿", ""},  {"¡", ""},  {"’", "'"}, {"«", "\""}, {"»", "\""}, {"–", "-"}};

bool starts_with(std::string_view text, size_t at, const char* what) {
    return text.compare(at, strlen(what), what) == 0;
}

const letter_row* letter_at(std::string_view text, size_t at, int language) {
    if (language == german)
        for (const letter_row& row : german_letters)
            if (starts_with(text, at, row.written)) return &row;
    for (const letter_row& row : letters)
        if (starts_with(text, at, row.written)) return &row;
    return nullptr;
}

// What the Latin fonts draw of a text; Korean has glyphs of its own and stays as it is written.
std::string drawn(const toml::node& where, const std::string& text, int language) {
    constexpr char first = 32, last = 124;
    if (language == korean) return text;
    std::string out;
    for (size_t at = 0; at < text.size();) {
        if (text[at] >= first && text[at] <= last) {
            out += text[at++];
        } else if (const letter_row* row = letter_at(text, at, language)) {
            out += row->drawn;
            at += strlen(row->written);
        } else {
            fault(where, "a character that the fonts do not draw: " + text.substr(at));
            break;
        }
    }
    return out;
}

// A text of one language: its own, or where Korean has none the English one, of which the language then is.
const toml::node* node_of(const toml::table& row, int& language) {
    if (language == korean && !row.contains(languages[korean].key)) language = english;
    return row.get(languages[language].key);
}

bool known_keys(const toml::table& row, std::initializer_list<const char*> others) {
    bool good = true;
    for (const auto& [key, value] : row) {
        bool known = false;
        for (const language_row& language : languages) known |= key == language.key;
        for (const char* other : others) known |= key == other;
        if (!known) fault(value, "unknown key " + std::string(key.str()));
        good &= known;
    }
    return good;
}

bool read_table(const char* path, toml::table& table) {
    table_path = path;
    try {
        table = toml::parse_file(path);
        return true;
    } catch (const toml::parse_error& e) {
        fprintf(stderr, "%s:%d: %s\n", path, static_cast<int>(e.source().begin.line),
                std::string(e.description()).c_str());
        return false;
    }
}

// One file of each language below the folder.
bool write_files(const char* folder, const std::string (&bytes)[language_count]) {
    for (int l = 0; l < language_count; ++l) {
        const fs::path path = fs::path(folder) / languages[l].folder / "Tarvane.txt";
        std::error_code ignored;
        fs::create_directories(path.parent_path(), ignored);
        std::ofstream out(path, std::ios::binary);
        out << bytes[l];
        out.close();
        if (!out) {
            fprintf(stderr, "%s: cannot be written\n", path.c_str());
            return false;
        }
    }
    return true;
}

// -- strings
struct text_run {
    std::string name;
    int first = 0;
    std::vector<std::string> lines[language_count];
};

std::string numbered(const std::string& pattern, int n) {
    const size_t at = pattern.find('#');
    return at == std::string::npos ? pattern : std::string(pattern).replace(at, 1, std::to_string(n));
}

std::vector<std::string> read_lines(const toml::table& row, int language, int64_t count) {
    const toml::node* node = node_of(row, language);
    std::vector<std::string> lines;
    if (!node) {
        fault(row, std::string("no text for ") + languages[language].folder);
    } else if (const toml::value<std::string>* one = node->as_string()) {
        for (int n = 1; n <= (count ? count : 1); ++n)
            lines.push_back(drawn(*node, count ? numbered(**one, n) : **one, language));
    } else if (const toml::array* list = node->as_array(); list && !count) {
        for (const toml::node& line : *list)
            lines.push_back(line.is_string() ? drawn(line, **line.as_string(), language) : "");
    }
    for (const std::string& line : lines) {
        if (line.empty()) fault(*node, "an empty text");
        if (line.size() > text_len_max)
            fault(*node, "longer than " + std::to_string(text_len_max) + " characters");
        if (!line.empty() && line[0] == ' ') fault(*node, "blanks before a text are lost");
    }
    return lines;
}

text_run read_run(const std::string& name, const toml::table& row) {
    constexpr size_t title_max = 40;
    text_run run;
    run.name = name;
    known_keys(row, {"number", "count"});
    run.first = static_cast<int>(row["number"].value_or(int64_t{-1}));
    const int64_t count = row["count"].value_or(int64_t{0});
    for (int l = 0; l < language_count; ++l) {
        run.lines[l] = read_lines(row, l, count);
        if (run.lines[l].size() != run.lines[english].size())
            fault(row, "not as many texts in every language");
        for (const std::string& line : run.lines[l])
            if (name.rfind("title_", 0) == 0 && line.size() > title_max)
                fault(row, "a title above 40 characters");
    }
    const int last = run.first + static_cast<int>(run.lines[english].size()) - 1;
    if (run.first < 1 || last >= textDIM) fault(row, "numbers go from 1 to " + std::to_string(textDIM - 1));
    return run;
}

// By number.
std::vector<text_run> read_texts(const toml::table& table) {
    std::map<int, std::string> taken;
    std::map<int, text_run> by_number;
    for (const auto& [key, node] : table) {
        if (!node.is_table()) {
            fault(node, "not a string's table");
            continue;
        }
        const text_run run = read_run(std::string(key.str()), *node.as_table());
        for (size_t i = 0; i < run.lines[english].size(); ++i) {
            const auto [other, is_new] = taken.emplace(run.first + static_cast<int>(i), run.name);
            if (!is_new)
                fault(node, "number " + std::to_string(other->first) + " is that of " + other->second);
        }
        by_number[run.first] = run;
    }
    std::vector<text_run> runs;
    for (const auto& [number, run] : by_number) runs.push_back(run);
    return runs;
}

// Lines of a number and a text; a negative number ends the file.
bool write_texts(const std::vector<text_run>& runs, const char* folder) {
    std::string bytes[language_count];
    for (int l = 0; l < language_count; ++l) {
        for (const text_run& run : runs)
            for (size_t i = 0; i < run.lines[l].size(); ++i)
                bytes[l] += std::to_string(run.first + static_cast<int>(i)) + " " + run.lines[l][i] + "\n";
        bytes[l] += "-1\n";
    }
    return write_files(folder, bytes);
}

std::string header_of(const std::vector<text_run>& runs) {
    std::ostringstream out;
    out << "// Numbers of the interface's strings, from content/text/texts.toml: build/tools/text_make "
           "header.\n"
           "#pragma once\n\n"
           "enum text_number : int {\n";
    for (const text_run& run : runs) {
        out << "    text_" << run.name << " = " << run.first << ",";
        if (run.lines[english].size() > 1) out << "  // and " << run.lines[english].size() - 1 << " more";
        out << "\n";
    }
    out << "};\n\n"
           "// Of each name its numbers: the first, and how many.\n"
           "struct text_run_struct {\n    int first, count;\n};\n"
           "inline constexpr text_run_struct text_runs[] = {\n";
    for (const text_run& run : runs)
        out << "    {text_" << run.name << ", " << run.lines[english].size() << "},\n";
    out << "};\n";
    return out.str();
}

std::string read_file(const char* path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

bool write_header(const std::string& header, const char* path) {
    std::ofstream out(path, std::ios::binary);
    out << header;
    out.close();
    if (!out) fprintf(stderr, "%s: cannot be written\n", path);
    return static_cast<bool>(out);
}

bool check_header(const std::string& header, const char* path) {
    if (read_file(path) == header) return true;
    fprintf(stderr, "%s does not name the strings of %s as they are now: run\n    text_make header %s %s\n",
            path, table_path.c_str(), table_path.c_str(), path);
    return false;
}

int make_texts(const std::string& verb, const char* table_file, const char* target) {
    toml::table table;
    if (!read_table(table_file, table)) return exit_bad_table;
    const std::vector<text_run> runs = read_texts(table);
    if (faults) return exit_bad_table;
    const bool done = verb == "texts"    ? write_texts(runs, target)
                      : verb == "header" ? write_header(header_of(runs), target)
                                         : check_header(header_of(runs), target);
    return done ? exit_good : exit_bad_table;
}

// -- menus
class menu_compiler {
public:
    void compile(const toml::array& menus) {
        for (std::string& file : bytes)
            file = "parent and title, then code and text; an empty line ends a menu\n";
        for (const toml::node& node : menus) {
            if (const toml::table* row = node.as_table())
                compile_menu(*row);
            else
                fault(node, "not a menu's table");
            ++m;
        }
        for (std::string& file : bytes) file += "\n";
    }
    std::string bytes[language_count];

private:
    // The program cuts a title and refuses an entry; entries outside the bar's menus have a fixed width.
    static constexpr size_t title_max = 40, text_max = 39, narrow_text_max = 26;
    int m = 0;
    std::set<int64_t> places;  // of all entries so far

    void compile_menu(const toml::table& row) {
        const int64_t parent = row["parent"].value_or(int64_t{-1});
        const bool in_bar = m <= menu_bar_last;
        if (in_bar != (parent == 0)) fault(row, "the titles of the bar, and no others, have parent 0");
        if (!in_bar && !places.count(parent)) fault(row, "no entry of an earlier menu has the parent's code");
        const toml::table* title = row["title"].as_table();
        if (!title || !known_keys(*title, {})) return fault(row, "no title");
        for (int l = 0; l < language_count; ++l)
            bytes[l] += std::to_string(parent) + " " + text_of(*title, l, "", title_max) + "\n";
        compile_entries(row);
        for (std::string& file : bytes) file += "\n";
    }

    void compile_entries(const toml::table& row) {
        const toml::array* entries = row["entries"].as_array();
        if (!entries) return fault(row, "no entries");
        if (entries->size() > static_cast<size_t>(menu_itemDIM)) fault(row, "too many entries");
        int place = 0;
        for (const toml::node& entry : *entries) {
            const int here = m * menu_itemDIM + place++;
            if (const toml::table* own = entry.as_table())
                compile_entry(*own, here);
            else
                separator(entry, here);
        }
    }

    void separator(const toml::node& entry, int here) {
        const std::string text = entry.value_or(std::string());
        if (text != "-" && text != "=") fault(entry, "neither an entry nor a separator");
        for (std::string& file : bytes) file += std::to_string(here) + " " + text + "\n";
    }

    void compile_entry(const toml::table& entry, int here) {
        known_keys(entry, {"code", "key"});
        const int64_t code = entry["code"].value_or(int64_t{-1});
        if (code != here) fault(entry, "this place has the code " + std::to_string(here));
        places.insert(here);
        const size_t longest = m > menu_bar_last ? narrow_text_max : text_max;
        const std::string key = entry["key"].value_or(std::string());
        for (int l = 0; l < language_count; ++l)
            bytes[l] += std::to_string(code) + " " + text_of(entry, l, key, longest) + "\n";
    }

    // Every glyph of the Korean file becomes two bytes, up to the key's bracket; an entry of fixed width holds ten.
    static void check_glyphs(const toml::node& node, const std::string& text, size_t longest) {
        constexpr size_t narrow_glyphs_max = 10;
        const size_t bracket = std::min(text.find('['), text.size());
        size_t glyphs = 0;
        for (size_t i = 0; i < bracket; ++i) glyphs += (text[i] & 0xC0) != 0x80;
        const bool is_narrow = longest == narrow_text_max;
        if (2 * glyphs + text.size() - bracket > text_max || (is_narrow && glyphs > narrow_glyphs_max))
            fault(node, "too many glyphs: " + text);
    }

    std::string text_of(const toml::table& row, int language, const std::string& key, size_t longest) {
        const bool in_korean_file = language == korean;  // whosever text stands there
        const toml::node* node = node_of(row, language);
        if (!node || !node->is_string()) {
            fault(row, std::string("no text for ") + languages[language].folder);
            return "";
        }
        std::string text = drawn(*node, **node->as_string(), language);
        if (text.empty() || strchr(" -=", text[0])) fault(*node, "empty, or begins like a separator");
        if (text.find_first_of("[|{") != std::string::npos)
            fault(*node, "\"[\", \"|\" and \"{\" have a meaning");
        if (!key.empty()) text += "[" + drawn(row, key, english);
        if (in_korean_file)
            check_glyphs(*node, text, longest);
        else if (text.size() > longest)
            fault(*node, "longer than " + std::to_string(longest) + ": " + text);
        return text;
    }
};

int make_menus(const char* table_file, const char* folder) {
    toml::table table;
    if (!read_table(table_file, table)) return exit_bad_table;
    const toml::array* menus = table["menu"].as_array();
    menu_compiler compiler;
    if (menus)
        compiler.compile(*menus);
    else
        fault(table, "no menus");
    if (faults || !write_files(folder, compiler.bytes)) return exit_bad_table;
    return exit_good;
}
}  // namespace

int main(int argc, char** argv) {
    const std::string verb = argc > 1 ? argv[1] : "";
    if (verb == "--help") return fputs(usage, stdout), exit_good;
    if (argc == 4 && verb == "menus") return make_menus(argv[2], argv[3]);
    if (argc == 4 && (verb == "texts" || verb == "header" || verb == "check"))
        return make_texts(verb, argv[2], argv[3]);
    fputs(usage, stderr);
    return exit_bad_usage;
}
