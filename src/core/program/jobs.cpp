// The job queue: one worker takes jobs in their order; the tables of what became of them are under one lock.
#include "core/program/jobs.h"

#include <errno.h>
#include <pthread.h>
#include <semaphore.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <exception>
#include <list>
#include <map>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "core/program/alert.h"
#include "core/program/logs.h"

namespace {
struct call_struct {
    int number;
    int (*function)(int);
    int parameter;
};

// A semaphore that starts at 0.
class xsemaphore {
public:
    xsemaphore() : made_(sem_init(&semaphore_, 0, 0) == 0) {}
    ~xsemaphore() {
        if (made_) sem_destroy(&semaphore_);
    }
    xsemaphore(const xsemaphore&) = delete;
    xsemaphore& operator=(const xsemaphore&) = delete;
    bool made() const { return made_; }
    int post() { return sem_post(&semaphore_) == 0 ? 0 : errno; }  // 0, or the error
    bool take_if_up() { return sem_trywait(&semaphore_) == 0; }
    void wait() {
        while (sem_wait(&semaphore_) != 0 && errno == EINTR) {
        }
    }

private:
    sem_t semaphore_;
    const bool made_;
};

// What waits for a worker. The semaphore counts the list.
class xqueue {
public:
    bool made() const { return waiting_.made(); }
    // 0, or the error of the semaphore.
    int enqueue(const call_struct& call) {
        const std::lock_guard<std::mutex> hold(mutex_);
        calls_.push_back(call);
        const int err = waiting_.post();
        if (err) calls_.pop_back();
        return err;
    }
    call_struct dequeue() {
        waiting_.wait();
        const std::lock_guard<std::mutex> hold(mutex_);
        const call_struct call = calls_.front();
        calls_.pop_front();
        return call;
    }

private:
    xsemaphore waiting_;
    std::mutex mutex_;
    std::list<call_struct> calls_;
};

constexpr call_struct leave_call{0, nullptr, 0};  // ends the worker that takes it

std::atomic<int> gInited{0};
std::thread::id gMainThread;  // none before the first start
int gCPUCount = 0;            // workers; 0 lets every job run in place
std::vector<pthread_t> gWorkerThreads;
// Made at the start and given up at the end; a stuck worker keeps those that it started with.
std::shared_ptr<xqueue> gCallQueue;
std::shared_ptr<xsemaphore> gDoneEvent;
// A worker sees the threads up until it leaves, so that its alerts throw while the end waits for it.
thread_local bool on_worker = false;

std::mutex gLock;  // guards all that follows; never held together with the queue's own
using StLocker = std::lock_guard<std::mutex>;
int gCallCounter = 0;
// By call number. Never destroyed: a stuck worker may outlive the end of main.
auto& gFinished = *new std::map<int, int>;
auto& gResults = *new std::map<int, int>;
auto& gHasException = *new std::map<int, int>;
auto& gExceptions = *new std::map<int, XException>;
auto& gSignals = *new std::map<int, std::list<int>>;

void fatal(const char* text) { MACIBM_fatal(text); }

void forget(int call) {
    gFinished.erase(call);
    gResults.erase(call);
    gHasException.erase(call);
    gExceptions.erase(call);
    gSignals.erase(call);
}

// -- running
void note_exception(int call, const XException& exception) {
    const StLocker hold(gLock);
    gHasException[call] = 1;
    gExceptions.insert_or_assign(call, exception);
}

// What the job throws is kept for whoever asks for it.
int guarded_result(const call_struct& call) {
    const char* const text = "A background job failed.";
    try {
        return call.function(call.parameter);
    } catch (const XException& thrown) {
        note_exception(call.number, thrown);
    } catch (const std::exception& thrown) {
        note_exception(call.number, XException(text, thrown.what(), "", "", __FILE__, __LINE__));
    } catch (...) {
        note_exception(call.number, XException(text, "", "", "", __FILE__, __LINE__));
    }
    return 0;
}

void RunOneCall(const call_struct& call) {
    const int result = guarded_result(call);
    bool known;
    {
        const StLocker hold(gLock);
        known = gFinished.count(call.number) != 0;
        if (known) {
            gFinished[call.number] = 1;
            gResults[call.number] = result;
        }
    }
    if (!known) fatal("RunOneCall (in threads lib) called with bogus call (no finished slot).");
}

struct worker_struct {
    std::shared_ptr<xqueue> queue;
    std::shared_ptr<xsemaphore> done;
};

void* worker(void* own) {
    const std::unique_ptr<worker_struct> mine(static_cast<worker_struct*>(own));
    on_worker = true;
    for (;;) {
        const call_struct call = mine->queue->dequeue();
        if (call.number == 0 && !call.function && call.parameter == 0) return nullptr;
        try {
            RunOneCall(call);
        } catch (const XException& thrown) {
            thrown.ReportAndContinue();
        }
        mine->done->post();
    }
}

// -- start and end
bool make_queue() {
    gCallQueue = std::make_shared<xqueue>();
    gDoneEvent = std::make_shared<xsemaphore>();
    return gCallQueue->made() && gDoneEvent->made();
}

bool start_worker() {
    auto own = std::make_unique<worker_struct>(worker_struct{gCallQueue, gDoneEvent});
    pthread_t thread;
    if (pthread_create(&thread, nullptr, worker, own.get()) != 0) return false;
    static_cast<void>(own.release());  // the worker's now
    gWorkerThreads.push_back(thread);
    return true;
}

// From here on jobs run in place. Also in a forked process, which has only the thread that forked.
void leave_workers() {
    gInited = 0;
    gCPUCount = 0;
    gWorkerThreads.clear();
    gCallQueue.reset();
    gDoneEvent.reset();
}

// True when the worker has ended. One that is stuck in its job, or asks for its own end, is let go.
bool join_or_leave(pthread_t thread) {
    constexpr time_t patience = 5;  // seconds: longer than any read of a healthy disk
    timespec until;
    clock_gettime(CLOCK_REALTIME, &until);
    until.tv_sec += patience;
    if (pthread_timedjoin_np(thread, nullptr, &until) == 0) return true;
    pthread_detach(thread);
    return false;
}

bool end_workers() {
    for (size_t i = 0; i < gWorkerThreads.size(); ++i)
        if (const int err = gCallQueue->enqueue(leave_call))
            deverr << "Warning: had err " << err << " when signaling for cleanup!\n";
    bool all = true;
    for (size_t i = 0; i < gWorkerThreads.size(); ++i) {
        if (join_or_leave(gWorkerThreads[i])) continue;
        deverr << "Warning: didn't wait for thread " << i << '\n';
        all = false;
    }
    return all;
}

void forget_all_calls() {
    const StLocker hold(gLock);
    gFinished.clear();
    gResults.clear();
    gHasException.clear();
    gExceptions.clear();
    gSignals.clear();
}

// -- asking
enum call_state : int { call_unknown, call_running, call_finished };

call_state state_of(int call, bool& has_exception) {
    const StLocker hold(gLock);
    const auto finished = gFinished.find(call);
    if (finished == gFinished.end()) return call_unknown;
    has_exception = gHasException[call] != 0;
    return finished->second ? call_finished : call_running;
}

// The clock of the waits counts whole seconds and never jumps.
long now_seconds() {
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_sec;
}

// Sleeps that long, or until some job has ended.
void sleep_until_done(long seconds) {
    constexpr int step_us = 1000, steps_per_second = 1000;
    for (long step = 0; step < seconds * steps_per_second; ++step) {
        if (gDoneEvent && gDoneEvent->take_if_up()) return;
        usleep(step_us);
    }
}

void throw_exception_of(int call) {
    std::unique_lock<std::mutex> hold(gLock);
    const XException copy = gExceptions.at(call);
    hold.unlock();
    throw copy;
}
}  // namespace

void THREAD_Init() {
    if (gInited) return;
    static const int fork_known = pthread_atfork(nullptr, nullptr, leave_workers);
    static_cast<void>(fork_known);
    gCPUCount = 1;
    if (!make_queue()) fatal("MPCreateQueue failed.");
    gMainThread = std::this_thread::get_id();
    for (int i = 0; i < gCPUCount; ++i)
        if (!start_worker()) fatal("pthread_create failed");
    deverr << "Number of CPUs: " << gCPUCount << '\n';
    gInited = 1;
}

bool THREAD_IsInited() { return gInited != 0 || on_worker; }

bool THREAD_IsMainThread() { return std::this_thread::get_id() == gMainThread; }

int THREAD_RunAsync(int (*inFunc)(int), int inParam, int inDiskIO) {
    call_struct call{0, inFunc, inParam};
    bool unique;
    {
        const StLocker hold(gLock);
        call.number = ++gCallCounter;
        unique = gFinished.count(call.number) == 0;
        if (unique) {
            gFinished[call.number] = gResults[call.number] = gHasException[call.number] = 0;
            gSignals[call.number] = {};
        }
    }
    if (!unique) fatal("new call ID is not unique in THREAD_RunAsync.");
    if (gCPUCount == 0 || (gCPUCount == 1 && !inDiskIO))
        RunOneCall(call);
    else if (gCallQueue->enqueue(call) != 0)
        fatal("enqueue failed for async dispatch.");
    return call.number;
}

int THREAD_IsDone(int inCall, float inWaitSeconds) {
    constexpr float longest_wait = 1.0e6f;  // stays in the range of the conversion
    const long wait = inWaitSeconds > 0.0f ? static_cast<long>(std::min(inWaitSeconds, longest_wait)) : 0;
    const long end = now_seconds() + wait;
    bool has_exception = false;
    call_state state = call_running;
    for (long left; state == call_running && (left = end - now_seconds()) > 0;) {
        state = state_of(inCall, has_exception);
        if (state == call_unknown) fatal("THREAD_IsDone called with bad call ID.");
        if (state == call_running) sleep_until_done(left);
    }
    if (has_exception) throw_exception_of(inCall);
    return state == call_finished;
}

int THREAD_DoneValue(int inCall) {
    const char* misuse = nullptr;
    int value = 0;
    {
        const StLocker hold(gLock);
        if (!gFinished.count(inCall))
            misuse = "THREAD_DoneValue called with bogus call (no finished slot).";
        else if (!gResults.count(inCall))
            misuse = "THREAD_DoneValue called with bogus call (no results slot).";
        else if (!gFinished[inCall])
            misuse = "THREAD_DoneValue called with running call.";
        else
            value = gResults[inCall];
    }
    if (misuse) fatal(misuse);
    return value;
}

void THREAD_Cleanup(int inCall) {
    bool has_exception = false;
    const call_state state = state_of(inCall, has_exception);
    if (state == call_unknown) fatal("THREAD_Cleanup called with bogus call (no finished slot).");
    if (state == call_running) fatal("THREAD_Cleanup called with still running call.");
    std::unique_lock<std::mutex> hold(gLock);
    if (!has_exception) return forget(inCall);
    const XException copy = gExceptions.at(inCall);
    forget(inCall);
    hold.unlock();
    throw copy;
}

bool THREAD_Finish(int inCall, float inWaitSeconds, const char* late_text) {
    try {
        if (!THREAD_IsDone(inCall, inWaitSeconds)) {
            MACIBM_alert(0, late_text, "", "", "", alert_message);
            return false;
        }
        THREAD_Cleanup(inCall);
        return true;
    } catch (const XException& thrown) {
        thrown.ReportAndContinue();
    }
    const StLocker hold(gLock);
    forget(inCall);
    return false;
}

void THREAD_Cleanup() {
    if (!gInited) return;
    gInited = 0;
    // a stuck job may still come back to its entry
    if (end_workers()) forget_all_calls();
    leave_workers();
}
