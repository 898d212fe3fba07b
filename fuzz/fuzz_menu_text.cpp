// Language files: bits of the first byte pick the file, the language and whether texts become glyphs; the
// rest is the file.
#include "draw/widgets/menus.h"
#include "support.h"
#include "ui/text/korean.h"
#include "ui/text/language.h"

namespace {
using fuzzing::must;

const std::set<std::string> language_texts = {
    "Cannot open file!",
    "Could not open text file!",
    "Too many text strings!",
    "Trying to read a text string we already have!",
    "Menu index out of range in create_menu!",
    "Item index out of range in append_menu!",
    "Menu name too long in append_menu!",
};

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

void fuzz_menu_text(fuzzing::input& in) {
    static const fuzzing::folder folder;
    init_paths(folder.path());
    const unsigned ways = in.byte();
    const std::string file = in.text();
    mnw.lang = ways & 2 ? lang_korean : lang_english;
    const std::string name = ways & 2 ? "/korean/Tarvane.txt" : "/english/Tarvane.txt";
    folder.write("Resources/text" + name, ways & 1 ? file : "-1\n");
    folder.write("Resources/menus" + name, ways & 1 ? "h\n" : file);
    try {
        MACIBM_setupforlang(0);
        if (ways & 4) {  // as if the glyph image were there
            stl.glyph_text = 1;
            MACIBM_clear_menus(2);
            MACIBM_read_menus("Tarvane.txt");
        }
    } catch (const fuzzing::fatal& f) {
        must(language_texts.count(f.text.line[0]));
    }
    check_what_was_read();
    must(char_string_to_int_string(file).size() <= 2 * file.size());
}
