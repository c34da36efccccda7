#include "morlan/MutexTable.h"

#include <chrono>
#include <condition_variable>
#include <thread>

namespace morlan
{

struct MutexTable::Mutex {
    std::mutex guard;
    std::condition_variable freed;
    std::thread::id owner;
    unsigned int depth = 0; // 0: nobody holds it
};

void* MutexTable::create()
{
    const auto mutex = std::make_shared<Mutex>();
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_live.emplace(mutex.get(), mutex);
    return mutex.get();
}

bool MutexTable::lock(void* mutex, int milliseconds)
{
    const std::shared_ptr<Mutex> found = find(mutex);
    if (!found)
        return false;
    const std::thread::id self = std::this_thread::get_id();
    const auto available = [&] { return found->depth == 0 || found->owner == self; };

    std::unique_lock<std::mutex> guard(found->guard);
    if (milliseconds < 0)
        found->freed.wait(guard, available);
    else if (!found->freed.wait_for(guard, std::chrono::milliseconds(milliseconds), available))
        return false;
    found->owner = self;
    ++found->depth;
    return true;
}

bool MutexTable::unlock(void* mutex)
{
    const std::shared_ptr<Mutex> found = find(mutex);
    if (!found)
        return false;
    const std::lock_guard<std::mutex> guard(found->guard);
    if (found->depth == 0 || found->owner != std::this_thread::get_id())
        return false;
    if (--found->depth == 0)
        found->freed.notify_one();
    return true;
}

bool MutexTable::destroy(void* mutex)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = m_live.find(mutex);
    if (found == m_live.end())
        return false;
    {
        const std::lock_guard<std::mutex> guard(found->second->guard);
        if (found->second->depth != 0)
            return false;
    }
    m_live.erase(found);
    return true;
}

unsigned int MutexTable::live() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return static_cast<unsigned int>(m_live.size());
}

std::shared_ptr<MutexTable::Mutex> MutexTable::find(void* mutex) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = m_live.find(mutex);
    return found == m_live.end() ? nullptr : found->second;
}

} // namespace morlan
