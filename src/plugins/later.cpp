// Routines of this folder that do not exist yet: each call stands in its place in the frame and gets its neutral
// answer here. The file shrinks as they are built.
#include "core/program/upward.h"
#include "plugins/host.h"

// No plugins.
void TVPInitializePlugins(const char*) {}
void TVPShutdownPlugins() {}
int TVPGetNumberPlanesToHandle(int num_acf, int) { return num_acf; }
void TVPUpdatePlaneNameAndPath(int, const char*, const char*) {}
void TVPEventHook(int, float, float, long, long) {}
int TVPHandleMenu(int) { return 0; }
int TVPCheckMenu(int) { return 0; }
int TVPMenuIsDisabled(int) { return 0; }
int TVPDoDrawingHook(int) { return 1; }
int TVPCameraHook(float*, float*, float*, float*, float*, float*, float*) { return 1; }
