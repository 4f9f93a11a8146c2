// Work that waits until the program has first painted, or until something
// needs it, whichever comes first: listing a library of thousands of designs
// never holds up the first sight of a window. A zero-delay timer is not
// enough, as it runs before the first window is exposed.
#pragma once

#include <functional>

#include <QObject>

class DeferredWork {
public:
    DeferredWork() = default;
    DeferredWork(const DeferredWork&) = delete;
    DeferredWork& operator=(const DeferredWork&) = delete;

    // Replaces any pending work with `work`, run once the application has
    // painted (at the next turn of the event loop if it already has), while
    // `context` lives. This object lives as long as `context` (a member).
    void defer(QObject* context, std::function<void()> work);
    // Runs the pending work now; nothing when none is pending.
    void runNow();
    // Forgets the pending work.
    void cancel() { work_ = nullptr; }
    bool pending() const { return bool(work_); }

private:
    std::function<void()> work_;
};
