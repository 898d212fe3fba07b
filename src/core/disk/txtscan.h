// Scanners over mapped bytes, and the header that every data file shares.
// Role: all text tables are read with these. They keep no state, and none reads at or past c_max.
// All take the first byte of the file and a position in it that they move. Only spaces are blanks: a
// tab is ordinary text.
#pragma once
#include <string>

#include "core/disk/mapfile.h"

using map_bytes = const unsigned char*;

// False at the end of the data: at the end of the file, or before a line that holds only 99.
int TXT_MAP_continue(map_bytes MAP_add, const int* c, int c_max);
// At a zero byte, carriage return, line feed, or the end of the file.
int TXT_MAP_eoln(map_bytes MAP_add, const int* c, int c_max);
// Past the run of such bytes, so that blank lines vanish.
void TXT_MAP_finish_line(map_bytes MAP_add, int* c, int c_max);
// Past spaces, then the rest of the line into str, which may be null, then past the line end.
void TXT_MAP_str_scan_eoln(map_bytes MAP_add, int* c, int c_max, std::string* str);
// Past spaces, then text up to a space, carriage return or line feed, which stays.
void TXT_MAP_str_scan_space(map_bytes MAP_add, int* c, int c_max, std::string* str);
// Past the word when it stands next, behind spaces, and a space follows it, or, if allowed, the line
// end. Otherwise the position stays.
int TXT_MAP_str_match_space(map_bytes MAP_add, int* c, int c_max, const char* word, int eoln_ok);
// Past spaces, a number up to a space, carriage return or line feed, and one byte further. Every byte
// between counts as a digit by its code, so bad text gives some number; too many digits wrap the whole
// number and saturate the other.
int TXT_MAP_int_scan(map_bytes MAP_add, int* c, int c_max);
float TXT_MAP_flt_scan(map_bytes MAP_add, int* c, int c_max);

// Binary files: the marker in the first byte of the file decides the byte order. Past the end of the
// file the values are zero.
int BIN_MAP_int_scan(map_bytes MAP_add, int* c, int c_max);
float BIN_MAP_flt_scan(map_bytes MAP_add, int* c, int c_max);
unsigned char BIN_MAP_chr_scan(map_bytes MAP_add, int* c, int c_max);
// A fixed field of that many bytes; the text ends at its first zero byte.
std::string BIN_MAP_str_scan_DIM(map_bytes MAP_add, int* c, int c_max, int dim);

// Passed as the version: any file that is not empty will do.
constexpr const char* map_any_version = "any";

// Header of the older kind: marker and version. Sets c_use to the first byte behind the version line
// (where it stopped on a failure) and c_max to the size of the mapping. Keeps the copyright text of
// airport and navaid tables.
int MAP_check_file(int ftype, const XMappedFile* MAP_file, map_bytes MAP_add, int* c_use, int* c_max,
                   const std::string& req_version_str);
// Header of the newer kind: marker, version, type word. req_versions ends with 0. Gives the version
// found, or 0; out_copyright may be null.
int MAP_check_file_text_typed(const XMappedFile* MAP_file, map_bytes MAP_add, int* c_use, int* c_max,
                              const int* req_versions, const char* req_file_type, std::string* out_copyright);
