// The field lists of the aircraft record as tables.
#include <type_traits>

#include "core/craft/veh.h"

namespace {
template <class T>
constexpr char type_code() {
    using element = std::remove_all_extents_t<T>;
    if constexpr (std::is_same_v<element, int>) return 'i';
    else if constexpr (std::is_same_v<element, float>) return 'f';
    else return 'c';
}

template <class T>
constexpr veh_field_struct row(const char* name, int offset, veh_role role, const char* doc) {
    return {name, offset, static_cast<int>(sizeof(T)), type_code<T>(),
            {static_cast<int>(std::extent_v<T, 0>), static_cast<int>(std::extent_v<T, 1>),
             static_cast<int>(std::extent_v<T, 2>)},
            role, doc};
}
}  // namespace

#define LIST(function, record, fields)                                                         \
    veh_field_list function() {                                                                \
        using rec = record;                                                                    \
        static constexpr veh_field_struct rows[] = {fields(X)};                                \
        return {rows, static_cast<int>(sizeof(rows) / sizeof(rows[0])), #record};              \
    }
#define X(off, type, name, dims, role, doc) row<decltype(rec::name)>(#name, off, veh_role_##role, doc),
LIST(veh_block_list, veh_struct, VEH_BLOCK_FIELDS)
LIST(veh_engn_list, veh_engn_struct, VEH_ENGN_FIELDS)
LIST(veh_wing_list, veh_wing_struct, VEH_WING_FIELDS)
LIST(veh_part_list, veh_part_struct, VEH_PART_FIELDS)
LIST(veh_gear_list, veh_gear_struct, VEH_GEAR_FIELDS)
LIST(veh_watt_list, veh_watt_struct, VEH_WATT_FIELDS)
LIST(veh_door_list, veh_door_struct, VEH_DOOR_FIELDS)
#undef X
#undef LIST
