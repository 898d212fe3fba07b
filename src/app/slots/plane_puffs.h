// Smoke, spray and JATO.
#pragma once

// Smoke, spray and JATO of slot p.
void emit_puffs(int p);
