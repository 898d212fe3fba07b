// The decoder's callbacks for definitions and properties; ref is the DSF_LoadState.
#pragma once
#include <string>

// One that is told: a place, a name.
void tell_missing(const char* what, const std::string& name);

// The callbacks, by the decoder's slots; ref is the DSF_LoadState.
void DSF_AcceptTerrainDef(const char* name, void* ref);
void DSF_AcceptObjectDef(const char* name, void* ref);
void DSF_AcceptPolygonDef(const char* name, void* ref);
void DSF_AcceptNetworkDef(const char* name, void* ref);
void DSF_AcceptProperty(const char* name, const char* value, void* ref);
