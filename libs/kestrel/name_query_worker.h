// Object name queries with a time limit. On Windows a name query of a file object waits while another
// thread of the owner has a synchronous read pending on it (a pipe, a hung device), possibly for ever. The
// queries run on one reused worker thread; when one does not return in time, the caller goes on without
// the name and the stuck worker is left behind (it ends by itself once its query returns) for a new one.
#pragma once
#include <windows.h>

#include <memory>
#include <string>
#include <thread>

namespace kestrel::detail {

struct NameQueryJob;

// The native name of an object, asked directly; false when the system gives none.
bool QueryObjectName(HANDLE object, std::wstring& name);

// True once an abandoned query has returned (its handle is then no longer held up).
bool QueryFinished(NameQueryJob& job);

using NameQueryFn = bool (*)(HANDLE object, std::wstring& name);

class NameQueryWorker {
public:
    // query: how a name is asked (tests hand in one that blocks).
    explicit NameQueryWorker(NameQueryFn query = QueryObjectName) : query_(query) {}
    ~NameQueryWorker();
    NameQueryWorker(const NameQueryWorker&) = delete;
    NameQueryWorker& operator=(const NameQueryWorker&) = delete;

    enum class Outcome { Named, Failed, TimedOut };
    // Takes ownership of object (a duplicated handle, closed when the query is over, even a late one).
    // On TimedOut, stuck receives the abandoned query, which QueryFinished tells about later.
    Outcome Query(HANDLE object, DWORD timeoutMs, std::wstring& name, std::shared_ptr<NameQueryJob>& stuck);

private:
    void Stop();

    NameQueryFn query_;
    std::shared_ptr<NameQueryJob> job_;
    std::thread thread_;
};

}  // namespace kestrel::detail
