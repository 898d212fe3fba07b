// Background jobs: a function runs on a worker, the main thread asks for its result, and what it throws comes
// back there.
// Role: file reading at start-up and region changes. A job may touch only what the main thread leaves alone
// while it waits, and must not draw: an alert there throws.
#pragma once

// Starts the worker and remembers the calling thread as the main one. A second call does nothing.
void THREAD_Init();
bool THREAD_IsInited();
bool THREAD_IsMainThread();

// Hands the job over and gives its call number. One that is not marked as disk work runs in place and has
// ended on return.
int THREAD_RunAsync(int (*inFunc)(int), int inParam, int inDiskIO);
// 1 when it has ended; waits up to the time, in whole seconds. With no time left it does not look. Throws on
// the caller's thread what the job threw.
int THREAD_IsDone(int inCall, float inWaitSeconds);
// Result of a job that has ended.
int THREAD_DoneValue(int inCall);
// Forgets a job that has ended; throws what it threw.
void THREAD_Cleanup(int inCall);
// The whole of it for a caller that goes on without the job's work: waits, tells the user what went wrong,
// forgets. False when it threw or is late; a late one may still be running.
bool THREAD_Finish(int inCall, float inWaitSeconds, const char* late_text);
// Ends the workers and forgets all jobs.
void THREAD_Cleanup();
