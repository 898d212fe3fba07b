// Stream files with the system's header: a byte-order mark, a version, and for text a line end of one
// or two characters.
// Role: one open input per inf_use and one open output; main thread only.
#pragma once
#include <fstream>
#include <string>

// File types, as the openers and the directory listing know them.
enum file_type : int {
    ftype_all = 0, ftype_folder = 1, ftype_acf = 2, ftype_afl = 3, ftype_wpn = 4, ftype_obj = 5, ftype_bmp = 6,
    ftype_fdr = 7, ftype_sit = 8, ftype_mov = 9, ftype_log = 10, ftype_fms = 11, ftype_tra = 12, ftype_car = 13,
    ftype_spa = 14, ftype_reg = 15, ftype_wav = 16, ftype_png = 17, ftype_env = 18, ftype_prf = 19,
    ftype_apt = 20, ftype_nav = 21,
};
bool ftype_is_bin(int ftype);

extern std::ifstream inf[2];
extern int inf_use;          // which of the two inputs is in use
extern std::ofstream ouf;
// Of the input opened last; the readers keep their own note for each of the two.
extern int rev_inf_bin;      // a binary input of the other byte order
extern int extra_char_eoln;  // a text input that ends its lines with two characters
// Text behind the version of the airport and navaid tables, kept for writing them back.
extern std::string copyright_apt, copyright_nav;

// Opens and reads the header; 0 when the file cannot be read, its first byte does not fit, or its
// version differs. version 0 skips the version. A wrong version is silent unless alert_bad_version.
int inf_open(const std::string& path, int ftype, int version, int alert_bad_version);
void inf_close();
// Creates and writes the header; a failure is told to the user and gives 0.
int ouf_open(const std::string& path, int ftype, int version);
// Flushes and closes; 0 when any write failed.
int ouf_close();
// The same pair for data that must not be lost: writes beside the old file, which ouf_replace puts in
// its place only when every byte is on the disk. A failure is told to the user and leaves the old file.
int ouf_open_beside(const std::string& path, int ftype, int version);
int ouf_replace();

// Reads del_add bytes and, for a reversed input, swaps each 4-byte word. What a short file does not
// hold stays as it was.
void read_n_rev(void* add1, long del_add);
void rev_byte_order4(unsigned char* word);

// From the open input. A number that cannot be parsed is the fatal "File-scanning error!" with the
// file's name.
int int_scan();                 // text or binary, by the type the input was opened with
float flt_scan();               // text
std::string str_scan();         // text: one word
std::string str_scan_to_EOL();  // text: the rest of the line without the blanks before it
void lin_scan();                // text: skips the rest of the line
