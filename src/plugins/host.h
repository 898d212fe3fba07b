// The plugin host.
#pragma once

void TVPInitializePlugins(const char* folder);
void TVPShutdownPlugins();
void TVPUpdatePlaneNameAndPath(int p, const char* name, const char* path);
