// Menus: the bar, drop-down and nested menus, and the pop-up of a settings window.
// Role: data and layout here; menu texts come from the language files, codes go to APP_handlemenu.
#pragma once
#include <string>
#include <vector>

constexpr int menuDIM = 1520, menu_itemDIM = 300;
constexpr int menu_bar_last = 6;  // titles of the bar are 0 to 6
constexpr int menu_refill_first = 7, menu_refill_last = 13;
constexpr int menu_further_first = 20, menu_further_last = 1219;
constexpr int menu_popup = 1519;
constexpr unsigned short no_menu_box = 65535;

struct item_struct {
    std::string item_name;  // "-" first: a separator 2 high, "=" first: one without height
    int item_code = 0;
    unsigned char is_korean = 0;
    unsigned short itemx1 = 0, itemy1 = 0, itemx2 = 0, itemy2 = 0;  // box, virtual units of the screen
};
struct menu_struct {
    std::string menu_name;  // empty: a free slot
    int menu_prnt = -1;     // -1 a title of the bar, else the parent menu
    unsigned short menux1 = 0, menuy1 = 0, menux2 = 0, menuy2 = 0;  // of the title, or of the parent's item
    std::vector<item_struct> item;
};
extern std::vector<menu_struct> menu;

// What the pop-up answers: the index, and the code of the control that opened it.
extern int popup_menu_select, select_popup_code, active_popup_code;

// A run without a window has no menus at all, until MACIBM_clear_menus(1): what follows then does nothing.
// i 0 makes a title of the bar, any other is the parent's item as menu times 300 plus item.
void MACIBM_create_menu(int m, int i, const std::string& stl_string);
// is_name: a plain name, never Korean glyphs.
void MACIBM_append_menu(int m, int i, int code, const std::string& stl_string, int is_name);
void MACIBM_clear_items(int m);
void MACIBM_clear_menu(int m);
void MACIBM_clear_menus(
    int level);  // 1 all anew; 2 slots 0 to 1219; 3 slots 20 to 1219 and the items of 7 to 13

// The bar while it is wanted, and the open menu. Asks for check marks and for entries that cannot be chosen.
struct menu_answers {
    int (*is_checked)(int code);
    int (*is_disabled)(int code);
};
extern menu_answers menu_answer;
void menus_draw();
// A click, or the mouse moving while a menu is open. 1 when the menus took it.
int menus_click(int is_click);
// An entry's text without its key hint, and the hint.
struct item_text {
    std::string name, hint;
};
item_text split_hint(const std::string& item_name);
