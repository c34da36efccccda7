#include "system/ForkedRun.h"

#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <exception>
#include <new>
#include <stdexcept>

namespace
{

constexpr unsigned int TIME_LIMIT = 30;
// Each run writes the mapping file through to the disk, which takes longer than all the rest.
const int IN_MEMORY = access("/dev/shm", W_OK) == 0 ? setenv("TMPDIR", "/dev/shm", 0) : 0;
Outcome* g_outcome = nullptr;

[[noreturn]] void onTerminate()
{
    g_outcome->end = RunEnd::Terminated;
    g_outcome->onEventThread = syscall(SYS_gettid) != getpid();
    g_outcome->uncaught = Thrown::Other;
    try {
        if (const std::exception_ptr uncaught = std::current_exception())
            std::rethrow_exception(uncaught);
    } catch (const std::bad_alloc&) {
        g_outcome->uncaught = Thrown::BadAlloc;
    } catch (...) { // it is known as another one already
    }
    _exit(0);
}

} // namespace

ForkedRun::ForkedRun()
    : m_shared(static_cast<Outcome*>(
          mmap(nullptr, sizeof(Outcome), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)))
{
    if (m_shared == MAP_FAILED)
        throw std::runtime_error("no shared memory");
}

ForkedRun::~ForkedRun()
{
    munmap(m_shared, sizeof(Outcome));
}

Outcome ForkedRun::operator()(const std::function<void(Outcome&)>& body)
{
    new (m_shared) Outcome{};
    const pid_t child = fork();
    if (child == 0) {
        g_outcome = m_shared;
        std::set_terminate(onTerminate);
        alarm(TIME_LIMIT);
        body(*m_shared);
        m_shared->end = RunEnd::Finished;
        _exit(0);
    }
    if (child < 0 || waitpid(child, nullptr, 0) != child)
        throw std::runtime_error("no process for a run");
    return *m_shared;
}
