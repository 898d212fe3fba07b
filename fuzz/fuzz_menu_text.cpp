// Language files: bits of the first byte pick the file, the language and whether texts become glyphs; the rest is
// the file.
#include <sys/stat.h>
#include <unistd.h>

#include "core/disk/paths.h"
#include "draw/widgets/menus.h"
#include "support.h"
#include "ui/text/korean.h"
#include "ui/text/language.h"

namespace {
using fuzzing::must;

// A language folder of each kind in memory, with a good file where the input brings none.
class language_folders {
public:
    language_folders() : root_("/dev/shm/tarvane-fuzz-" + std::to_string(getpid())) {
        mkdir(root_.c_str(), 0700);
        init_paths(root_);
        txt_path = root_ + ":text:";
        men_path = root_ + ":menus:";
        for (const char* kind : {"/text", "/menus"}) {
            mkdir((root_ + kind).c_str(), 0700);
            for (const char* language : {"/english", "/korean"}) mkdir((root_ + kind + language).c_str(), 0700);
        }
    }
    ~language_folders() {
        for (const char* kind : {"/text", "/menus"}) {
            for (const char* language : {"/english", "/korean"}) {
                unlink((root_ + kind + language + "/Tarvane.txt").c_str());
                rmdir((root_ + kind + language).c_str());
            }
            rmdir((root_ + kind).c_str());
        }
        rmdir(root_.c_str());
    }
    void write(const char* kind, const void* bytes, size_t count) const {
        const char* language = mnw.lang == lang_korean ? "/korean" : "/english";
        FILE* file = fopen((root_ + kind + language + "/Tarvane.txt").c_str(), "wb");
        must(file && fwrite(bytes, 1, count, file) == count);
        fclose(file);
    }

private:
    std::string root_;
};

bool is_language_text(const std::string& line) {
    static const std::set<std::string> texts = {
        "Cannot open file!",
        "Could not open text file!",
        "Too many text strings!",
        "Trying to read a text string we already have!",
        "Menu index out of range in create_menu!",
        "Item index out of range in append_menu!",
        "Menu name too long in append_menu!",
    };
    return texts.count(line) != 0;
}

// Whatever was read can be shown: short enough, and every menu hangs on an earlier one.
void check_what_was_read() {
    for (const std::string& text : stl.text) must(text.size() <= text_len_max);
    for (int m = 0; m < menuDIM; ++m) {
        must(menu[m].menu_name.size() <= 40 && menu[m].menu_prnt < m);
        must(menu[m].item.size() <= menu_itemDIM);
        for (const item_struct& item : menu[m].item) must(item.item_name.size() < 40);
    }
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzzing::start();
    static const language_folders folders;
    if (size < 1) return 0;
    const bool texts = data[0] & 1;
    mnw.lang = data[0] & 2 ? lang_korean : lang_english;
    folders.write("/text", texts ? data + 1 : reinterpret_cast<const uint8_t*>("-1\n"), texts ? size - 1 : 3);
    folders.write("/menus", texts ? reinterpret_cast<const uint8_t*>("h\n") : data + 1, texts ? 2 : size - 1);
    try {
        MACIBM_setupforlang(0);
        if (data[0] & 4) {  // as if the glyph image were there
            stl.glyph_text = 1;
            MACIBM_clear_menus(2);
            MACIBM_read_menus("Tarvane.txt");
        }
    } catch (const fuzzing::fatal& f) {
        must(is_language_text(f.text.line[0]));
    }
    check_what_was_read();
    const std::string pairs = char_string_to_int_string({reinterpret_cast<const char*>(data), size});
    must(pairs.size() <= 2 * size);
    return 0;
}
