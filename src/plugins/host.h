// The plugin host.
#pragma once

void TVPInitializePlugins(const char* folder);
void TVPShutdownPlugins();
// Slots that loops may use; a plugin may narrow them.
int TVPGetNumberPlanesToHandle(int num_acf, int inLoading);
void TVPUpdatePlaneNameAndPath(int p, const char* name, const char* path);
