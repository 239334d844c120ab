// The refresh thread of the main window, its update rate and the main window's periodic timers.
//
// Use from the main window, on the UI thread:
//   set-up:   cycle.Init(main, hooks); cycle.LoadRate(); ... cycle.Start();   (Start sets the timers first)
//   WM_TIMER:                 cycle.OnTimer(wParam);
//   WM_USER:                  cycle.OnRefreshMessage(wParam);   (acts on wParam 4000 only)
//   WM_COMMAND:               if (cycle.OnRateCommand(id)) return;
//   WM_DESTROY:               cycle.Stop();   cycle.SavePeriod() with the other options at close
// The thread also ends by itself once the main window is gone; Stop() (and the destructor) wait for it
// while still handling the messages it sends to this thread.
#pragma once
#include <windows.h>

#include <atomic>
#include <functional>

#include "kestrel.h"
#include "restore_hot_key.h"
#include "unique_handles.h"

namespace proclist {

constexpr UINT_PTR kRestoreHotKeyTimer = 4000;  // polls Alt + left Ctrl + F11
constexpr UINT_PTR kRearmTimer = 4001;          // sets itself again with the current period
constexpr UINT_PTR kSpareTimer = 4002;          // no action
constexpr UINT_PTR kDetailsPaneTimer = 4003;    // periodic work of the details pane
constexpr UINT kDetailsPaneTimerPeriod = 5000;
constexpr WPARAM kViewRefreshRequest = 4000;    // wParam of WM_USER: run the view refresh on the UI thread

// The other subsystems' parts of a cycle, called in the order the cycle runs them. Any may be empty.
struct RefreshHooks {
    // On the refresh thread, right after the provider's update: system counters, tray icon, graph points.
    std::function<void()> sampleSystem;
    std::function<void()> updatePerformancePopups;
    std::function<void(HWND processList)> updateSelectionView;
    // View refresh, after the process list (UI thread, or refresh thread while the main window is in front).
    std::function<void(HWND processList)> refreshDetailsViews;
    std::function<void()> updateStatusBar;
    std::function<void()> rebuildProcessMenu;  // Process popup and the details pane's pause button
    // A rate change: the performance source's period and its half.
    std::function<void(unsigned periodMs, unsigned halfPeriodMs)> setSamplerInterval;
    // Timer 4003.
    std::function<void()> detailsPanePeriodic;
};

class RefreshCycle {
public:
    explicit RefreshCycle(kestrel::TL_PROCESSLIST& provider) : provider_(provider) {}
    ~RefreshCycle();
    RefreshCycle(const RefreshCycle&) = delete;
    RefreshCycle& operator=(const RefreshCycle&) = delete;

    void Init(HWND mainWindow, RefreshHooks hooks);
    // Applies the stored UpdateInterval (default 1000; any value, 0 runs as 100).
    void LoadRate();
    // Tells the sampler and the provider the period, keeps it and rebuilds View > Refresh Rate.
    void SetRate(unsigned periodMs);
    // Handles the five rate commands; false for any other command.
    bool OnRateCommand(unsigned commandId);
    unsigned GetPeriod() const { return period_; }
    // Stores UpdateInterval, 0 as 100.
    void SavePeriod() const;

    // Sets timers 4000 to 4003, then starts the refresh thread. False when the thread could not start.
    bool Start();
    // Ends the refresh thread and waits for it; safe to call more than once.
    void Stop();
    bool IsRunning() const { return static_cast<bool>(thread_); }
    // True once the thread has returned (it does so by itself when the main window is gone).
    bool HasThreadEnded() const { return thread_ && WaitForSingleObject(thread_.Get(), 0) == WAIT_OBJECT_0; }

    void OnTimer(UINT_PTR timerId);
    // WM_USER: runs the view refresh when wParam is 4000; returns whether it was that request.
    bool OnRefreshMessage(WPARAM wParam);
    // The views' part of a cycle: process list, details views, status bar, Process menu.
    void RunViewRefresh();

    // Lets tests press keys without a keyboard; the program keeps GetAsyncKeyState.
    void SetKeyStateReader(KeyStateReader reader) { readKeyState_ = reader; }

private:
    static DWORD WINAPI ThreadMain(void* self);
    void RunCycles();
    void RunOneCycle();
    void UpdateProvider();
    void WaitForPeriod(DWORD cycleStart) const;
    void RebuildRateMenu() const;

    kestrel::TL_PROCESSLIST& provider_;
    HWND mainWindow_ = nullptr;
    // Control 5001, found once at Init: a search by id asks the window manager every time, and a cycle
    // needs the list several times. It lives as long as the main window.
    HWND processList_ = nullptr;
    RefreshHooks hooks_;
    std::atomic<unsigned> period_{0};
    std::atomic<bool> stopping_{false};
    UniqueKernelHandle thread_;
    KeyStateReader readKeyState_ = GetAsyncKeyState;
};

}  // namespace proclist
