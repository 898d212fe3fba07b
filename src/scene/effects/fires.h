#pragma once
void fires_step(); void plot_fires(); void reset_fires();
