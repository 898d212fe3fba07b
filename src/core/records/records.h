// All global records together, and their common reset.
#pragma once
#include "core/craft/veh.h"
#include "core/records/atm.h"
#include "core/records/bro.h"
#include "core/records/con.h"
#include "core/records/env.h"
#include "core/records/flt.h"
#include "core/records/mnw.h"
#include "core/records/msc.h"
#include "core/records/nav.h"
#include "core/records/net.h"
#include "core/records/pat.h"
#include "core/records/ren.h"
#include "core/records/scn.h"
#include "core/records/stg.h"
#include "core/records/stl.h"

// Zeroes every record and empties all aircraft slots: the state before start-up.
void clear_records();
