// Widgets: each draws itself and answers the mouse in one call, in coordinates of the open window.
// Role: the whole vocabulary of the settings windows. All take clicks only while no menu is open; the mouse
// over one sets stl.help_message to the help of its label ("left|right{xhelp"). Each returns 1 in the frame
// in which the user changed it.
#pragma once
#include <string>

int BTN_action(float x_center, float y_center, int pressed, int show_press, const std::string& label0);
int BTN_bool(float x, float y, int* var, const std::string& label0, int is_radio);
int BTN_is_int(float x, float y, int* var, int target, const std::string& label0);
int BTN_xchr(float x, float y, char* var, char target, const std::string& label0);
int BTN_xbyt(float x, float y, unsigned char* var, unsigned char target, const std::string& label0);

// Digit boxes: a click on the upper half of a digit adds its place value, one on the lower half takes it
// away.
int BTN_int(float x, float y, int* var, int dig, int sign, const std::string& label0);
int BTN_flt(float x, float y, float* var, int dig, int dec, int sign, const std::string& label0);
int BTN_int_range(float x, float y, int* var, int dig, int lo, int hi, const std::string& label0);
int BTN_flt_range(float x, float y, float* var, int dig, int dec, float lo, float hi,
                  const std::string& label0);
// English or metric by the user's setting: var is in the English unit, metric = var x to_metric.
int BTN_fltij(float x, float y, float* var, int dig, int dec, int sign, float to_metric, int is_metric,
              const std::string& label0);
int BTN_flt_rangeij(float x, float y, float* var, int dig, int dec, float lo, float hi, float to_metric,
                    int is_metric, const std::string& label0);
void BTN_display_number(float x, float y, float var, int dig, int dec, const std::string& label0);
// Identifiers: each character steps through blank, 0 to 9, A to Z.
int BTN_chars(float x, float y, char* chars, int dim, const std::string& label0);
int char_to_code(char c);  // 0 to 36, 0 for all others
char code_to_char(int code);

// A list that opens over its control; each item begins with "-".
int BTN_textlist(float x, float y, int* sel, const std::string& stl_list, const std::string& label0);
int BTN_tab(int col, int row, int* tab_variable, int tab_sel, const std::string& label);
int BTN_horz_slider(float x, float y, float dx_max, int col, float data1, float data2, float* data,
                    int allow_change, const std::string& label0, const std::string& overwrite);
// A scroll bar over lo_ind to hi_ind.
int BTN_vert_slider(float x_center, float lo_y, float hi_y, int lo_ind, int hi_ind, int* center_index);
// A picture button; tiles in pixels of the interface image.
int BTN_icon(float x_center, float y_center, float sc_off, float tc_off, float sc_on, float tc_on, float sdx,
             float sdy, int color, int* var, const std::string& label0);
int BTN_enterstring(float x, float y, std::string* input, int dim, int this_field, const std::string& label0);
int BTN_select_file(float x, float y, std::string* stl_file, std::string* stl_path, int file_type,
                    int open_save, const std::string& label0);
// Scrolling list of lines; win_type tells what the lines are. fetchFunc gives the name of an index.
int BTN_big_name_list(int win_type, float x, float y, float dx, float dy, int* ctr_index, int* hil_index,
                      int ind1, int ind2, std::string* str_input, std::string (*fetchFunc)(int));
// The identifier behind a line of the lists of places, for their second search field: given by those who fill the
// lists, by the index that fetchFunc gets. Without it there is no such field.
struct place_ids_struct {
    std::string (*navaid)(int) = nullptr;
    std::string (*airport)(int) = nullptr;
};
extern place_ids_struct place_ids;
// Text fields of the widgets themselves, as mnw.entry_field has them.
enum widget_field : int { field_search_name = 9001, field_search_id = 9002 };
void reset_widgets();

void BTN_pan_zoom(float x, float y);

// Opens the file dialog; type selects folder and filter. The file and path come back when the user chose one.
void dialog_opensave(int open_save, int file_type, std::string* file, std::string* path);

// -- windows
// What fills a window below its bar: one of these, or a box_kind 10 in from the edges.
enum window_fill : int { fill_top_strip = 1, fill_nothing = 19 };
void BTN_fillwin(int bar, int fill_type);
void BTN_subwin(float tab_dy, int win_type, float x, float y, float dx, float dy, const std::string& str,
                float* x2, float* y2);
void BTN_zap_boxes(int pressed);
