// Menus.
#include "draw/menus.h"

#include "core/alert.h"
#include "core/mnw.h"
#include "core/num.h"

std::vector<menu_struct> menu(menuDIM);

static void fatal_text(const char* text) { MACIBM_alert(mnw.top_win, text, "", "", "", alert_fatal); }

void MACIBM_create_menu(int m, int i, std::string stl_string) {
    constexpr size_t longest = 40;
    if (!intrange(m, 0, menuDIM - 1)) return fatal_text("Menu index out of range in create_menu!");
    menu[m].menu_name = stl_string.substr(0, longest);
    menu[m].menu_prnt = i == 0 ? -1 : i / menu_itemDIM;
}

void MACIBM_append_menu(int m, int i, int code, std::string stl_string, int is_name) {
    constexpr size_t too_long = 40;
    if (!intrange(m, 0, menuDIM - 1)) return fatal_text("Menu index out of range in append_menu!");
    if (!intrange(i, 0, menu_itemDIM - 1)) return fatal_text("Item index out of range in append_menu!");
    if (stl_string.size() >= too_long) return fatal_text("Menu name too long in append_menu!");
    if (static_cast<int>(menu[m].item.size()) <= i) menu[m].item.resize(static_cast<size_t>(i) + 1);
    menu[m].item[i] = {stl_string, code, static_cast<unsigned char>(!is_name && mnw.lang == 5)};
}

void MACIBM_clear_menus(int level) {
    constexpr int further_last = 1219;
    if (level == 2)
        for (int m = 0; m <= further_last; ++m) menu[m] = menu_struct{};
}
