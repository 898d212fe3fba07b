// All global records together, and their common reset.
#pragma once
#include "core/atm.h"
#include "core/con.h"
#include "core/env.h"
#include "core/flt.h"
#include "core/mnw.h"
#include "core/msc.h"
#include "core/nav.h"
#include "core/net.h"
#include "core/pat.h"
#include "core/ren.h"
#include "core/stg.h"
#include "core/stl.h"
#include "core/veh.h"

// Zeroes every record and empties all aircraft slots: the state before start-up.
void clear_records();
