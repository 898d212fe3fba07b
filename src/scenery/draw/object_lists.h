// Display lists of objects, made once while an object is loaded.
#pragma once

// Lists by day and night of all levels of vec_mod[M]; nothing without a window.
void compile_object_lists(int M);
