// Display coefficients and the stability report.
#pragma once

// Display coefficients and the stability report.
void display_coefficients();
