// The plugin host.
#pragma once

void TVPInitializePlugins(const char* folder);
void TVPShutdownPlugins();
// Asks for the camera: place, m, angles, degrees, zoom of the map. 0 when a plugin has placed it.
int TVPCameraHook(float* x, float* y, float* z, float* the, float* psi, float* phi, float* map_zoom);
void TVPUpdatePlaneNameAndPath(int p, const char* name, const char* path);
