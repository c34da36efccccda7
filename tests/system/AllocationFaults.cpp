#include "system/AllocationFaults.h"

#include "system/Design.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <mutex>
#include <new>
#include <unordered_map>

namespace
{

std::atomic<bool> g_watching{false};
// What the hooks themselves allocate is none of their business.
thread_local bool t_inHook = false;
std::mutex g_mutex;
Outcome* g_outcome = nullptr;
Caller g_caller = Caller::Plugin;
unsigned int g_firstDoomed = 0;
unsigned int g_lastDoomed = 0;
std::uint32_t g_depth = 1; // of the chains kept with memory

std::unordered_map<void*, CallChain>& held()
{
    static std::unordered_map<void*, CallChain> memory;
    return memory;
}

// One call of malloc or new: null where it is to fail.
template <class Allocate>
void* watched(Allocate allocate)
{
    if (!g_watching || t_inHook)
        return allocate();
    t_inHook = true;
    void* memory = nullptr;
    if (const CallChain chain = CallChain::here(g_depth, g_caller); chain.size == 0)
        memory = allocate();
    else {
        const std::lock_guard<std::mutex> lock(g_mutex);
        const unsigned int place = ++g_outcome->places;
        if (place >= g_firstDoomed && place <= g_lastDoomed)
            g_outcome->struck[g_outcome->strikes++ % Outcome::KEPT] =
                CallChain::here(CallChain::WHOLE, g_caller);
        else if ((memory = allocate()) != nullptr && g_caller == Caller::Plugin)
            held()[memory] = chain;
    }
    t_inHook = false;
    return memory;
}

void forget(void* memory)
{
    if (!g_watching || t_inHook)
        return;
    t_inHook = true;
    {
        const std::lock_guard<std::mutex> lock(g_mutex);
        held().erase(memory);
    }
    t_inHook = false;
}

} // namespace

#ifdef ZARNEK_SANITIZED

void* operator new(std::size_t size, const std::nothrow_t& /*form*/) noexcept
{
    return watched([size] { return std::malloc(size); });
}
void* operator new[](std::size_t size, const std::nothrow_t& form) noexcept
{
    return operator new(size, form);
}
void* operator new(std::size_t size)
{
    void* const memory = operator new(size, std::nothrow);
    return memory != nullptr ? memory : throw std::bad_alloc();
}
void* operator new[](std::size_t size)
{
    return operator new(size);
}
void operator delete(void* memory) noexcept
{
    forget(memory);
    std::free(memory);
}
void operator delete[](void* memory) noexcept
{
    operator delete(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept
{
    operator delete(memory);
}
void operator delete[](void* memory, std::size_t /*size*/) noexcept
{
    operator delete(memory);
}

// Where a constructor throws.
void operator delete(void* memory, const std::nothrow_t& /*form*/) noexcept
{
    operator delete(memory);
}

#else

// The forms of new and delete come down to these.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void __libc_free(void* memory);

__attribute__((visibility("default"))) void* malloc(std::size_t size)
{
    return watched([size] { return __libc_malloc(size); });
}
__attribute__((visibility("default"))) void* calloc(std::size_t count, std::size_t size)
{
    return watched([count, size] { return __libc_calloc(count, size); });
}
__attribute__((visibility("default"))) void* realloc(void* memory, std::size_t size)
{
    void* const moved = watched([memory, size] { return __libc_realloc(memory, size); });
    if (moved != nullptr && moved != memory)
        forget(memory);
    return moved;
}
__attribute__((visibility("default"))) void free(void* memory)
{
    forget(memory);
    __libc_free(memory);
}
}

#endif

void AllocationFaults::begin(Outcome& outcome)
{
    g_outcome = &outcome;
    g_caller = m_caller;
    g_firstDoomed = m_nth;
    g_lastDoomed = m_forGood && m_nth != 0 ? ~0U : m_nth;
    g_depth = m_wholeChains ? CallChain::WHOLE : 1;
    held().clear();
    g_watching = true;
}

void AllocationFaults::end()
{
    g_watching = false;
    for (const auto& [memory, chain] : held())
        g_outcome->lost[g_outcome->losses++ % Outcome::LOST] = chain;
}

void expectNoLoss(const Outcome& outcome)
{
    if (outcome.losses == 0)
        return;
    FunctionNames names;
    const auto lost = std::min(outcome.losses, Outcome::LOST);
    std::for_each_n(outcome.lost.begin(), lost, [&](const CallChain& chain) { names.want(chain); });
    names.find();
    std::for_each_n(outcome.lost.begin(), lost, [&](const CallChain& chain) {
        EXPECT_NE(designOf(What::Loses, ANY, names.text(chain)), nullptr) << "lost:\n" << names.text(chain);
    });
}
