#include "mvsim/api/mvsim_control.h"

#include "common/words.h"
#include "mvsim/api/Library.h"
#include "mvsim/api/SourceChoice.h"

#include <exception>

namespace
{

using mvsim::Library;

// Plays what `make` gives; what it throws becomes the message.
template <class Make>
int play(Make make, char* message, std::size_t size)
{
    try {
        Library::instance().simulator.play(make());
        devkit::copyText("", message, size);
        return 0;
    } catch (const std::exception& error) {
        devkit::copyText(error.what(), message, size);
    } catch (...) {
        devkit::copyText("unknown error", message, size);
    }
    return 1;
}

std::string textOf(const char* text)
{
    return text != nullptr ? text : "";
}

} // namespace

int mvsim_load_scenario(const char* file, char* message, size_t size)
{
    return play([file] { return mvsim::scenarioSource(textOf(file)); }, message, size);
}

int mvsim_load_live(const char* sysfs_root, const char* state_file, char* message, size_t size)
{
    return play([=] { return mvsim::liveSource(textOf(sysfs_root), textOf(state_file)); }, message, size);
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
    return Library::instance().simulator.polls();
}

unsigned int mvsim_last_poll(void)
{
    return Library::instance().simulator.lastPoll();
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
    return Library::instance().faults.plan(call, nth, count, status) ? 0 : 1;
}

void mvsim_clear_faults(void)
{
    Library::instance().faults.clearFaults();
}

unsigned int mvsim_call_count(const char* call)
{
    return Library::instance().faults.calls(call);
}
