#include "mvsim/api/mvsim_control.h"

#include "common/guarded.h"
#include "common/words.h"
#include "mvsim/api/Library.h"
#include "mvsim/api/SourceChoice.h"

#include <cstdio>
#include <exception>
#include <new>

namespace
{

using mvsim::Library;

// Plays what `make` gives; what it throws becomes the message. `name` is that of the file or folder.
template <class Make>
int play(const char* name, Make make, char* message, std::size_t size)
{
    try {
        Library::instance().simulator.play(make());
        devkit::copyText("", message, size);
        return 0;
    } catch (const std::bad_alloc&) {
        // Without memory for the text.
        std::snprintf(message, size, "%s: takes more memory than there is", name);
    } catch (const std::exception& error) {
        devkit::copyText(error.what(), message, size);
    }
    return 1;
}

const char* textOf(const char* text)
{
    return text != nullptr ? text : "";
}

} // namespace

int mvsim_load_scenario(const char* file, char* message, size_t size)
{
    return play(
        textOf(file), [file] { return mvsim::scenarioSource(textOf(file)); }, message, size);
}

int mvsim_load_live(const char* sysfs_root, const char* state_file, char* message, size_t size)
{
    return play(
        textOf(sysfs_root), [=] { return mvsim::liveSource(textOf(sysfs_root), textOf(state_file)); },
        message, size);
}

void mvsim_set_sequence_base(unsigned int sequence)
{
    Library::instance().simulator.setSequenceBase(sequence);
}

void mvsim_set_call_sink(devkit_text_sink sink, void* context)
{
    Library::instance().callSink.set(sink, context);
}

void mvsim_set_event_sink(mvsim_event_sink sink, void* context)
{
    Library::instance().eventSink.set(sink, context);
}

unsigned int mvsim_polls(void)
{
    return devkit::guarded(0U, [] { return Library::instance().simulator.polls(); });
}

unsigned int mvsim_last_poll(void)
{
    return devkit::guarded(0U, [] { return Library::instance().simulator.lastPoll(); });
}

void mvsim_reset(void)
{
    Library& library = Library::instance();
    library.callSink.set(nullptr, nullptr);
    library.eventSink.set(nullptr, nullptr);
    library.faults.reset();
    library.simulator.setSequenceBase(0);
    library.simulator.play(nullptr);
}

int mvsim_fail_call(const char* call, unsigned int nth, unsigned int count, int status)
{
    return devkit::guarded(1,
                           [=] { return Library::instance().faults.plan(call, nth, count, status) ? 0 : 1; });
}

void mvsim_clear_faults(void)
{
    Library::instance().faults.clearFaults();
}

unsigned int mvsim_call_count(const char* call)
{
    return Library::instance().faults.calls(call);
}
