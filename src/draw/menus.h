// Menus: titles, entries and what hangs on what.
#pragma once
#include <string>
#include <vector>

constexpr int menuDIM = 1520, menu_itemDIM = 300;
constexpr int menu_bar_last = 6;  // titles of the bar are 0 to 6

struct item_struct {
    std::string item_name;  // "-" first: a separator 2 high, "=" first: one without height
    int item_code = 0;
    unsigned char is_korean = 0;
};
struct menu_struct {
    std::string menu_name;  // empty: a free slot
    int menu_prnt = -1;     // -1 a title of the bar, else the parent menu
    std::vector<item_struct> item;
};
extern std::vector<menu_struct> menu;

// i 0 makes a title of the bar, any other is the parent's item as menu times 300 plus item.
void MACIBM_create_menu(int m, int i, std::string stl_string);
// is_name: a plain name, never Korean glyphs.
void MACIBM_append_menu(int m, int i, int code, std::string stl_string, int is_name);
void MACIBM_clear_menus(int level);  // 2 slots 0 to 1219
