// Any lines as a sysfs tree, and as what happens to it: the live source shows a machine that can be, and what
// its polls tell is the way from each machine to the next.
#include "common/TempFolder.h"
#include "mvsim/Answer.h"
#include "mvsim/SysfsTree.h"
#include "mvsim/api/mvsim_control.h"
#include "mvsim/model/EventCodes.h"

#include <set>

namespace
{

using Numbers = std::set<unsigned int>;

// The numbers of the devices that a list names.
template <class Record>
Numbers shown(ListCall call, std::uint16_t Record::*number)
{
    constexpr std::uint16_t PAGE = 50;
    Numbers numbers;
    for (std::uint16_t start = 0; numbers.size() == start; start += PAGE) {
        const Answer page = ask(call, MV_REQUEST_LIST, start, PAGE);
        for (std::size_t i = 0; i < page.returned; ++i)
            numbers.insert(page.entry<Record>(i).*number);
        demand(numbers.size() == start + page.returned, "each device has a number of its own");
    }
    return numbers;
}

Numbers shownDisks()
{
    const Numbers numbers = shown(MV_PD_GetConfig, &_HD_CONFIG::SlotNumber);
    demand(numbers == shown(MV_PD_GetHDInfo_Ext, &_HD_Info::HD_Id), "a disk's slot is its id");
    for (const unsigned int number : numbers) {
        const Numbers known = {MV_DISK_READY, MV_DISK_IN_ARRAY, MV_DISK_SPARE, MV_DISK_BAD};
        demand(known.count(diskStatus(static_cast<std::uint16_t>(number)).value()) == 1,
               "a disk has one status");
    }
    return numbers;
}

Numbers shownArrays()
{
    return shown(MV_LD_GetInfo, &_LD_Info::LD_Id);
}

// What is there after the events so far.
struct Told {
    Numbers disks = shownDisks();
    Numbers arrays = shownArrays();
    unsigned int sequence = 0;

    void take(const _Event& event)
    {
        demand(event.EventSequence == ++sequence, "events are numbered without gaps");
        Numbers& known = event.EventClass == MV_EVENT_PHYSICAL_DISK ? disks : arrays;
        if (Numbers{mvsim::DISK_INSERTED, mvsim::VIRTUAL_DISK_CREATED}.count(event.EventCode) == 1)
            demand(known.insert(event.EventDeviceId).second, "what comes was not there");
        else if (Numbers{mvsim::DISK_REMOVED, mvsim::VIRTUAL_DISK_DELETED}.count(event.EventCode) == 1)
            demand(known.erase(event.EventDeviceId) == 1, "what goes was there");
        else if (event.EventClass != MV_EVENT_CONTROLLER)
            demand(known.count(event.EventDeviceId) == 1, "what changes is there");
    }
    // Until there is no more news.
    void poll()
    {
        std::array<_Event, MV_MAX_EVENTS> events{};
        unsigned int polls = 0;
        for (unsigned int count = 1; count != 0;) {
            demand(MV_EVT_GetEvent(0, MV_MAX_EVENTS, &count, events.data()) == 0, "a poll succeeds");
            std::for_each_n(events.begin(), count, [this](const _Event& event) { take(event); });
            demand(++polls < 100, "news come to an end when nothing changes");
        }
        demand(disks == shownDisks() && arrays == shownArrays(), "what was told is what is shown");
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const TempFolder folder;
    SysfsTree tree(folder.path());
    demand(mvsim_load_live(tree.root().c_str(), nullptr, nullptr, 0) == 0, "an empty machine loads");
    Told told;
    std::istringstream lines(std::string(reinterpret_cast<const char*>(data), size));
    for (std::string line; std::getline(lines, line);) {
        tree.perform(line);
        if (line == "poll")
            told.poll();
    }
    told.poll();
    return 0;
}
