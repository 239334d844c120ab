#include "name_query_worker.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <vector>

#include "handle_nt_api.h"

namespace kestrel::detail {

// What the caller and the worker share; the worker keeps it alive after the caller has given up on it.
struct NameQueryJob {
    std::mutex mutex;
    std::condition_variable changed;
    HANDLE object = nullptr;   // the handle to name; owned by the job while set
    bool pending = false;
    bool done = false;
    bool stop = false;
    bool found = false;
    std::wstring name;
};

namespace {

void RunWorker(std::shared_ptr<NameQueryJob> job, NameQueryFn query) {
    std::unique_lock lock(job->mutex);
    for (;;) {
        job->changed.wait(lock, [&] { return job->pending || job->stop; });
        if (!job->pending) return;
        HANDLE object = job->object;
        lock.unlock();
        std::wstring name;
        const bool found = query(object, name);
        CloseHandle(object);
        lock.lock();
        job->object = nullptr;
        job->pending = false;
        job->found = found;
        job->name = std::move(name);
        job->done = true;
        job->changed.notify_all();
        if (job->stop) return;   // the caller gave up on this worker while it was stuck
    }
}

}  // namespace

bool QueryObjectName(HANDLE object, std::wstring& name) {
    const auto query = nt::QueryObject();
    if (!query) return false;
    // Names are limited to 32767 characters; most fit the first try.
    std::vector<unsigned char> buffer(1024);
    for (int attempt = 0; attempt < 3; ++attempt) {
        ULONG needed = 0;
        const NTSTATUS status = query(object, nt::ObjectNameInformationClass, buffer.data(),
                                      static_cast<ULONG>(buffer.size()), &needed);
        if (status >= 0) {
            const auto* text = reinterpret_cast<const UNICODE_STRING*>(buffer.data());
            name.assign(text->Buffer ? text->Buffer : L"", text->Length / sizeof(wchar_t));
            return true;
        }
        if (status != nt::StatusInfoLengthMismatch && status != nt::StatusBufferOverflow &&
            status != nt::StatusBufferTooSmall)
            return false;
        buffer.resize(std::max<size_t>(needed, buffer.size() * 2) + sizeof(UNICODE_STRING));
    }
    return false;
}

bool QueryFinished(NameQueryJob& job) {
    std::lock_guard lock(job.mutex);
    return job.done;
}

NameQueryWorker::Outcome NameQueryWorker::Query(HANDLE object, DWORD timeoutMs, std::wstring& name,
                                                std::shared_ptr<NameQueryJob>& stuck) {
    if (!job_) {
        job_ = std::make_shared<NameQueryJob>();
        thread_ = std::thread(RunWorker, job_, query_);
    }
    std::unique_lock lock(job_->mutex);
    job_->object = object;
    job_->pending = true;
    job_->done = false;
    job_->changed.notify_all();
    if (job_->changed.wait_for(lock, std::chrono::milliseconds(timeoutMs), [&] { return job_->done; })) {
        name = std::move(job_->name);
        return job_->found ? Outcome::Named : Outcome::Failed;
    }
    // Stuck: the worker keeps the job (and closes the handle) when its query returns, then ends.
    job_->stop = true;
    lock.unlock();
    thread_.detach();
    stuck = std::move(job_);
    return Outcome::TimedOut;
}

void NameQueryWorker::Stop() {
    if (!job_) return;
    {
        std::lock_guard lock(job_->mutex);
        job_->stop = true;
        job_->changed.notify_all();
    }
    thread_.join();
    job_.reset();
}

NameQueryWorker::~NameQueryWorker() { Stop(); }

}  // namespace kestrel::detail
