// The place of one sink: a C function with a context that the host may exchange while other threads are
// calling it. No lock is held while the sink runs, so it may exchange or remove itself.
#ifndef ZARNEK_DEVKIT_COMMON_SINKSLOT_H
#define ZARNEK_DEVKIT_COMMON_SINKSLOT_H

#include <algorithm>
#include <condition_variable>
#include <list>
#include <mutex>
#include <thread>

namespace devkit
{

// `Function` is a pointer to a function whose first parameter is the context.
template <class Function>
class SinkSlot
{
  public:
    // Puts a sink in, null for none. When this returns, the sink before it is no longer running, so that its
    // context may go. Called from within a sink of this place it waits for nobody, as two of them would wait
    // for each other.
    void set(Function function, void* context)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_function = function;
        m_context = context;
        const unsigned long long replaced = m_generation++;
        const auto within = [](const Visit& visit) { return visit.thread == std::this_thread::get_id(); };
        const auto former = [replaced](const Visit& visit) { return visit.generation <= replaced; };
        if (std::none_of(m_visits.begin(), m_visits.end(), within))
            m_left.wait(lock, [&] { return std::none_of(m_visits.begin(), m_visits.end(), former); });
    }

    bool isSet() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_function != nullptr;
    }

    // Calls the sink; false when there is none. What it throws comes through.
    template <class... Arguments>
    bool call(Arguments... arguments)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        const Function function = m_function;
        void* const context = m_context;
        if (function == nullptr)
            return false;
        const auto visit = m_visits.insert(m_visits.end(), {std::this_thread::get_id(), m_generation});
        lock.unlock();
        const Leave leave{*this, visit};
        function(context, arguments...);
        return true;
    }

  private:
    struct Visit {
        std::thread::id thread;
        unsigned long long generation; // of the sink that it runs
    };
    struct Leave {
        SinkSlot& slot;
        typename std::list<Visit>::iterator visit;
        ~Leave()
        {
            const std::lock_guard<std::mutex> lock(slot.m_mutex);
            slot.m_visits.erase(visit);
            slot.m_left.notify_all();
        }
    };

    mutable std::mutex m_mutex;
    std::condition_variable m_left;
    std::list<Visit> m_visits; // the calls under way
    unsigned long long m_generation = 0;
    Function m_function = nullptr;
    void* m_context = nullptr;
};

} // namespace devkit

#endif
