// The start of the user's flight. init_flt_0 stands with what may be called from everywhere
// (core/program/upward.h).
#pragma once
#include "core/program/upward.h"
