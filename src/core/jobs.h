// Background jobs.
#pragma once

// Ends the worker and forgets all jobs.
void THREAD_Cleanup();
