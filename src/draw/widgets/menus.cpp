// Menus.
#include "draw/widgets/menus.h"

#include "core/disk/text_numbers.h"
#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/program/upward.h"
#include "core/records/mnw.h"
#include "core/records/stl.h"
#include "draw/gl/colours.h"
#include "draw/images/interface_layout.h"
#include "draw/images/tman.h"
#include "draw/primitives.h"
#include "draw/type.h"
#include "draw/widgets/frames.h"

std::vector<menu_struct> menu(menuDIM);
int popup_menu_select = -1, select_popup_code = -1, active_popup_code = -1;

static int never(int) { return 0; }
menu_answers menu_answer = {never, never};

namespace {
constexpr float bar_height = 18.0f, entry_width = 180.0f, entry_height = 12.0f, korean_height = 14.0f;

unsigned short unit(float x) { return static_cast<unsigned short>(intlim(intround(x), 0, 65535)); }
bool is_korean() { return stl.glyph_text; }

// Width of a title or entry as it will be drawn.
float title_dx(const std::string& text) {
    constexpr float glyph_pair = 16.0f;
    return is_korean() ? 0.5f * static_cast<float>(text.size()) * glyph_pair : str_dx(text);
}

bool is_separator(const item_struct& item) {
    return !item.item_name.empty() && (item.item_name[0] == '-' || item.item_name[0] == '=');
}
bool can_be_chosen(const item_struct& item) { return !item.item_name.empty() && !is_separator(item); }

float height_of(const item_struct& item) {
    if (!item.item_name.empty() && item.item_name[0] == '-') return 2.0f;
    if (!item.item_name.empty() && item.item_name[0] == '=') return 0.0f;
    return item.is_korean ? korean_height : entry_height;
}

void place(item_struct& item, float x1, float top, float dx) {
    item.itemx1 = unit(x1);
    item.itemx2 = unit(x1 + dx);
    item.itemy2 = unit(top);
    item.itemy1 = unit(top - height_of(item));
}

// All entries of the bar's menus are as wide as the widest.
void widen_entries(menu_struct& m) {
    constexpr float margin = 30.0f;
    float widest = 0.0f;
    for (const item_struct& item : m.item) widest = fltmax2(widest, title_dx(item.item_name) + margin);
    for (item_struct& item : m.item) item.itemx2 = unit(static_cast<float>(item.itemx1) + widest);
}

constexpr int screen_edge = 5;

void shift(menu_struct& m, int left, int up) {
    for (item_struct& item : m.item) {
        item.itemx1 = static_cast<unsigned short>(item.itemx1 - left);
        item.itemx2 = static_cast<unsigned short>(item.itemx2 - left);
        item.itemy1 = static_cast<unsigned short>(item.itemy1 + up);
        item.itemy2 = static_cast<unsigned short>(item.itemy2 + up);
    }
}

// Places the entry at x1 below top. A menu that would pass the right or the bottom edge moves back onto the screen,
// all its entries at once; boxes count from zero, so it moves up before its last entry is placed.
void place_on_screen(menu_struct& m, item_struct& item, float x1, float top) {
    const int up = intmax2(screen_edge - intround(top - height_of(item)), 0);
    if (up) shift(m, 0, up);
    place(item, x1, top + static_cast<float>(up), entry_width);
    const int left = intmax2(item.itemx2 - (XRES - screen_edge), 0);
    if (left) shift(m, left, 0);
}

void place_entry(int m, int i) {
    menu_struct& own = menu[m];
    item_struct& item = own.item[i];
    constexpr int column_of = 60;
    float x1 = own.menux1;
    float top = own.menu_prnt < 0 ? own.menuy1 : own.menuy2;  // below its title, or over the parent's entry
    if (i > 0) {
        x1 = own.item[i - 1].itemx1;
        top = own.item[i - 1].itemy1;
    }
    if (m <= menu_bar_last) {
        place(item, x1, top, entry_width);
        return widen_entries(own);
    }
    if (i > 0 && i % column_of == 0) {
        x1 += entry_width;
        top = own.item[0].itemy2;
    }
    place_on_screen(own, item, x1, top);
}
}  // namespace

void MACIBM_create_menu(int m, int i, const std::string& stl_string) {
    constexpr size_t longest = 40;
    if (menu.empty()) return;
    if (!intrange(m, 0, menuDIM - 1)) return MACIBM_fatal("Menu index out of range in create_menu!");
    menu_struct& own = menu[m];
    own.menu_name = stl_string.substr(0, longest);
    if (i == 0) {
        static float x = 10.0f;
        constexpr float margin = 30.0f;
        if (m == 0) x = 10.0f;
        own.menu_prnt = -1;
        own.menux1 = unit(x);
        x += margin + title_dx(own.menu_name);
        own.menux2 = unit(x);
        own.menuy1 = unit(YRES - bar_height + mnw.y_off);
        own.menuy2 = unit(YRES + mnw.y_off);
        return;
    }
    // a parent that does not exist leaves the menu without a way to open it
    const int parent = i / menu_itemDIM, entry = i % menu_itemDIM;
    own.menu_prnt = intrange(parent, 0, menuDIM - 1) ? parent : menuDIM;
    own.menux1 = own.menuy1 = own.menux2 = own.menuy2 = 0;
    if (own.menu_prnt == menuDIM || !intrange(entry, 0, static_cast<int>(menu[parent].item.size()) - 1))
        return;
    const item_struct& item = menu[parent].item[entry];
    own.menux1 = item.itemx1;
    own.menux2 = item.itemx2;
    own.menuy1 = item.itemy1;
    own.menuy2 = item.itemy2;
}

void MACIBM_append_menu(int m, int i, int code, const std::string& stl_string, int is_name) {
    constexpr size_t too_long = 40;
    if (menu.empty()) return;
    if (!intrange(m, 0, menuDIM - 1)) return MACIBM_fatal("Menu index out of range in append_menu!");
    if (!intrange(i, 0, menu_itemDIM - 1)) return MACIBM_fatal("Item index out of range in append_menu!");
    if (stl_string.size() >= too_long) return MACIBM_fatal("Menu name too long in append_menu!");
    menu_struct& own = menu[m];
    if (static_cast<int>(own.item.size()) <= i) own.item.resize(static_cast<size_t>(i) + 1);
    item_struct& item = own.item[i];
    item.item_name = stl_string;
    item.item_code = code;
    item.is_korean = is_korean() && !is_name;
    place_entry(m, i);
}

void MACIBM_clear_items(int m) {
    if (intrange(m, 0, static_cast<int>(menu.size()) - 1)) menu[m].item.clear();
}

void MACIBM_clear_menu(int m) {
    if (intrange(m, 0, static_cast<int>(menu.size()) - 1)) menu[m] = menu_struct{};
}

void MACIBM_clear_menus(int level) {
    if (level == 1) menu.assign(menuDIM, menu_struct{});
    const int first = level == 2 ? 0 : menu_further_first;
    if (level >= 2)
        for (int m = first; m <= menu_further_last; ++m) MACIBM_clear_menu(m);
    if (level == 3)
        for (int m = menu_refill_first; m <= menu_refill_last; ++m) MACIBM_clear_items(m);
}

item_text split_hint(const std::string& item_name) {
    const size_t bracket = item_name.find('[');
    if (bracket == std::string::npos) return {item_name, ""};
    std::string hint = item_name.substr(bracket + 1);
    if (!hint.empty() && hint.back() == ']') hint.pop_back();
    std::string name = item_name.substr(0, bracket);
    while (!name.empty() && name.back() == ' ') name.pop_back();
    return {name, hint};
}

// -- drawing, in virtual units of the screen
namespace {
// The mouse in screen units, whatever window is open.
float screen_mx() { return mnw.mx + mnw.win_x; }
float screen_my() { return mnw.my + mnw.win_y; }

bool over(const item_struct& item) {
    return flt_box(screen_mx(), screen_my(), item.itemx1, item.itemy1, item.itemx2, item.itemy2);
}
bool over_title(const menu_struct& m) {
    return flt_box(screen_mx(), screen_my(), m.menux1, m.menuy1, m.menux2, m.menuy2);
}

// Draws in screen units while a window is open.
class in_screen_units {
public:
    in_screen_units() : x_(mnw.win_x), y_(mnw.win_y) { mnw.win_x = mnw.win_y = 0.0f; }
    ~in_screen_units() {
        mnw.win_x = x_;
        mnw.win_y = y_;
    }

private:
    float x_, y_;
};

int title_charset() { return is_korean() ? charset_korean : charset_text; }

bool bar_is_wanted() {
    const bool near_top = mnw.top_win == win_fly && screen_my() > YRES - bar_height + mnw.y_off;
    return near_top || (mnw.menu_up >= 0 && mnw.menu_up != menu_popup);
}

void draw_bar() {
    constexpr float text_in = 10.0f, text_up = 6.0f, half_bar = 9.0f;
    BTN_frame1(strip_menu_bar, 0.5f * (mnw.x1_pix + mnw.x2_pix), YRES + mnw.y_off - half_bar, mnw.x2_pix - mnw.x1_pix,
               col_white);
    if (mnw.menu_up < 0) stl.help_message = stl.text[text_help_menu_bar];
    for (int m = 0; m <= menu_popup - 1; ++m) {
        const menu_struct& own = menu[m];
        if (own.menu_name.empty() || own.menu_prnt != -1) continue;
        const bool open = mnw.menu_up == m;
        if (open || over_title(own))
            OGL_fillrect(col_white, open ? 0.25f : 0.12f, own.menux1, own.menuy1 + 1.0f,
                         own.menux2 - own.menux1, bar_height - 2.0f);
        OGL_string(col_menu, own.menux1 + text_in, own.menuy1 + text_up, own.menu_name, no_wrap,
                   title_charset());
    }
}

struct screen_box {
    float x1, y1, x2, y2;
};
screen_box union_of(const menu_struct& m) {
    screen_box b{9999.0f, 9999.0f, 0.0f, 0.0f};
    for (const item_struct& item : m.item) {
        if (item.item_name.empty()) continue;
        b.x1 = fltmin2(b.x1, item.itemx1);
        b.y1 = fltmin2(b.y1, item.itemy1);
        b.x2 = fltmax2(b.x2, item.itemx2);
        b.y2 = fltmax2(b.y2, item.itemy2);
    }
    return b;
}

// The menu that hangs on an entry, or -1.
int menu_of_entry(int m, const item_struct& item) {
    for (int s = 0; s < menu_popup; ++s) {
        const menu_struct& sub = menu[s];
        if (sub.menu_prnt == m && !sub.menu_name.empty() && sub.menux1 == item.itemx1 &&
            sub.menuy1 == item.itemy1 && sub.menuy2 == item.itemy2)
            return s;
    }
    return -1;
}

bool is_off(int m, const item_struct& item);

// Something can be chosen in it.
bool leads_somewhere(int m) {
    for (const item_struct& item : menu[m].item)
        if (can_be_chosen(item) && !is_off(m, item)) return true;
    return false;
}

// A submenu without a working entry is as dead as a command that does nothing.
bool is_off(int m, const item_struct& item) {
    const int sub = menu_of_entry(m, item);
    return sub >= 0 ? !leads_somewhere(sub) : menu_answer.is_disabled(item.item_code) != 0;
}

void draw_small_piece(const piece& p, float x, float y) {
    OGL_piece(tex_interface, col_white, 1.0f, x, y, x + p.dx, y + p.dy, p.s, p.t, p.s + p.dx, p.t + p.dy);
}

void draw_entry(int m, const item_struct& item) {
    constexpr float dim = 0.3f;
    if (is_separator(item)) {
        const float y = 0.5f * (item.itemy1 + item.itemy2);
        OGL_line(col_line_dark, 1.0f, item.itemx1 + 2.0f, y, item.itemx2 - 2.0f, y);
        OGL_line(col_line_light, dim, item.itemx1 + 2.0f, y - 1.0f, item.itemx2 - 2.0f, y - 1.0f);
        return;
    }
    const bool opens = menu_of_entry(m, item) >= 0, off = is_off(m, item);
    if (over(item) && !off)
        OGL_fillrect(col_white, 0.25f, item.itemx1, item.itemy1, item.itemx2 - item.itemx1,
                     item.itemy2 - item.itemy1);
    const int colour = off ? col_menu_off : col_menu;
    const float indent = m == menu_popup ? 3.0f : 18.0f, y = item.itemy1 + 3.0f;
    const item_text text = split_hint(item.item_name);
    OGL_string(colour, item.itemx1 + indent, y, text.name, no_wrap,
               item.is_korean ? charset_korean : charset_text);
    if (!text.hint.empty() && !off)  // a key that does nothing is not promised
        OGL_string(colour, item.itemx2 - 10.0f - str_dx(text.hint), y, text.hint, no_wrap, charset_text);
    if (m == menu_popup) return;
    if (menu_answer.is_checked(item.item_code))
        draw_small_piece(piece_menu_check, item.itemx1 + 4.0f, item.itemy1 + 1.0f);
    if (opens)
        draw_small_piece(piece_menu_arrow, item.itemx2 - 4.0f - piece_menu_arrow.dx, item.itemy1 + 2.0f);
}

void draw_open_menu(int m) {
    const menu_struct& own = menu[m];
    const screen_box b = union_of(own);
    if (b.x2 <= b.x1) return;
    constexpr float pad = 3.0f;
    BTN_frame2(box_menu, b.x1 - pad, b.y1 - pad, b.x2 - b.x1 + 2.0f * pad, b.y2 - b.y1 + 2.0f * pad, "");
    // columns are parted by a line
    for (size_t i = 1; i < own.item.size(); ++i) {
        const float x = own.item[i].itemx1;
        if (own.item[i - 1].item_name.empty() || own.item[i].item_name.empty() || x <= own.item[i - 1].itemx1)
            continue;
        OGL_line(col_line_light, 1.0f, x, b.y1, x, b.y2);
        OGL_line(col_line_dark, 1.0f, x + 1.0f, b.y1, x + 1.0f, b.y2);
    }
    for (const item_struct& item : own.item)
        if (!item.item_name.empty()) draw_entry(m, item);
}
}  // namespace

void menus_draw() {
    const in_screen_units screen;
    if (bar_is_wanted()) draw_bar();
    if (!intrange(mnw.menu_up, 0, menuDIM - 1)) return;
    // a nested menu stands over those it came from
    int chain[menuDIM], depth = 0;
    for (int m = mnw.menu_up; intrange(m, 0, menuDIM - 1) && depth < menuDIM; m = menu[m].menu_prnt)
        chain[depth++] = m;
    while (depth > 0) draw_open_menu(chain[--depth]);
}

// -- clicks
namespace {
void choose(int m, size_t i) {
    const int code = menu[m].item[i].item_code;
    mnw.menu_up = -1;
    if (TVPHandleMenu(code)) return;
    if (m != menu_popup) return APP_handlemenu(code);
    popup_menu_select = static_cast<int>(i);
    select_popup_code = active_popup_code;
    active_popup_code = -1;
}

// Titles of the bar, and entries of open menus that hold one: a click opens or shuts it, the mouse over it
// opens it.
bool open_by_title(int is_click) {
    for (int m = 0; m < menu_popup; ++m) {
        const menu_struct& own = menu[m];
        if (own.menu_name.empty() || !over_title(own)) continue;
        if (own.menu_prnt != -1 && (own.menu_prnt != mnw.menu_up || !leads_somewhere(m))) continue;
        mnw.menu_up = is_click && mnw.menu_up == m ? -1 : m;
        return true;
    }
    return false;
}

// The mouse back over a menu that the open one hangs on: that is the open one again.
void return_to_parent() {
    if (!intrange(mnw.menu_up, 0, menuDIM - 1)) return;
    for (int m = mnw.menu_up; intrange(m, 0, menuDIM - 1); m = menu[m].menu_prnt) {
        for (const item_struct& item : menu[m].item) {
            if (item.item_name.empty() || !over(item)) continue;
            mnw.menu_up = m;
            return;
        }
    }
}
}  // namespace

int menus_click(int is_click) {
    if (mnw.top_win == win_fly && !is_click) return_to_parent();
    if (mnw.top_win == win_fly && open_by_title(is_click)) return 1;
    if (!is_click || !intrange(mnw.menu_up, 0, menuDIM - 1)) return 0;
    const int m = mnw.menu_up;
    for (size_t i = 0; i < menu[m].item.size(); ++i) {
        const item_struct& item = menu[m].item[i];
        if (!can_be_chosen(item) || !over(item)) continue;
        if (menu_of_entry(m, item) >= 0 || is_off(m, item)) return 1;
        choose(m, i);
        return 1;
    }
    mnw.menu_up = -1;
    return 1;
}
