#include "morlan/ThreadTable.h"

#include <algorithm>
#include <exception>
#include <thread>

namespace morlan
{

namespace
{

// The time between two wakes of a thread that is to end. One alone may come just before it goes to sleep.
constexpr std::chrono::milliseconds WAKE_INTERVAL{5};

} // namespace

struct ThreadTable::Thread {
    std::thread thread;
    std::thread::id id; // as long as it has not ended; `thread` belongs to whoever joins it
    unsigned int number = 0;
    bool released = false;
    bool stopping = false;
    bool ended = false; // the function has returned
    bool joining = false;
    bool joined = false;
};

// Marks the end of a thread however it comes: by return or by pthread_exit.
class ThreadTable::EndMark
{
  public:
    EndMark(ThreadTable& table, Thread& thread) : m_table(table), m_thread(thread) {}
    EndMark(const EndMark&) = delete;
    EndMark& operator=(const EndMark&) = delete;
    ~EndMark()
    {
        const std::lock_guard<std::mutex> lock(m_table.m_mutex);
        m_thread.ended = true;
        m_table.m_changed.notify_all();
    }

  private:
    ThreadTable& m_table;
    Thread& m_thread;
};

ThreadTable::ThreadTable() = default;
ThreadTable::~ThreadTable() = default;

void* ThreadTable::create(void (*function)(void*), void* argument)
{
    auto created = std::make_unique<Thread>();
    Thread& thread = *created;
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto entry = m_threads.emplace(&thread, std::move(created)).first;
    // Before the thread is there, so that it can unblock the signal. Without a free signal a stop takes as
    // long as the thread sleeps.
    m_wake.acquire();
    try {
        thread.thread = std::thread(&ThreadTable::run, this, std::ref(thread), function, argument);
    } catch (const std::exception&) {
        m_threads.erase(entry);
        return nullptr;
    }
    thread.id = thread.thread.get_id();
    thread.number = static_cast<unsigned int>(m_threads.size());
    return &thread;
}

void ThreadTable::run(Thread& thread, void (*function)(void*), void* argument)
{
    const EndMark mark(*this, thread);
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_wake.unblockHere();
        m_changed.wait(lock, [&] { return thread.released && (!m_held || thread.stopping); });
    }
    function(argument);
}

void ThreadTable::release(void* thread)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (Thread* const found = find(thread)) {
        found->released = true;
        m_changed.notify_all();
    }
}

bool ThreadTable::stop(void* thread)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    Thread* const found = find(thread);
    if (found == nullptr || (!found->ended && found->id == std::this_thread::get_id()))
        return false;

    found->stopping = true;
    m_changed.notify_all();
    while (!found->ended) {
        if (m_wake.acquire())
            m_wake.send(found->thread.native_handle());
        m_changed.wait_for(lock, WAKE_INTERVAL, [found] { return found->ended; });
    }
    join(lock, *found);
    return true;
}

void ThreadTable::hold(bool held)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_held = held;
    m_changed.notify_all();
}

unsigned int ThreadTable::running() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return static_cast<unsigned int>(std::count_if(m_threads.begin(), m_threads.end(),
                                                   [](const auto& entry) { return !entry.second->ended; }));
}

bool ThreadTable::waitUntilNoneRuns(std::chrono::milliseconds limit)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    if (!m_changed.wait_for(lock, limit, [this] { return noneRuns(); }))
        return false;
    // Threads that nobody stops are gathered here, so that they do not stay behind as ended but not joined.
    for (const auto& [handle, thread] : m_threads)
        if (thread->ended)
            join(lock, *thread);
    return true;
}

unsigned int ThreadTable::number(void* thread) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const Thread* const found = find(thread);
    return found == nullptr ? 0 : found->number;
}

ThreadTable::Thread* ThreadTable::find(void* thread) const
{
    const auto found = m_threads.find(thread);
    return found == m_threads.end() ? nullptr : found->second.get();
}

void ThreadTable::join(std::unique_lock<std::mutex>& lock, Thread& thread)
{
    if (thread.joining) {
        m_changed.wait(lock, [&thread] { return thread.joined; });
        return;
    }
    thread.joining = true;
    lock.unlock();
    thread.thread.join();
    lock.lock();
    thread.joined = true;
    m_changed.notify_all();
}

bool ThreadTable::noneRuns() const
{
    return std::all_of(m_threads.begin(), m_threads.end(),
                       [](const auto& entry) { return entry.second->ended; });
}

} // namespace morlan
