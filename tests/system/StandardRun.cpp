#include "system/StandardRun.h"

#include "common/SdoObject.h"
#include "morlan/morlan_inspect.h"
#include "ral/ral_inspect.h"

#include <sdo.h>
#include <zarnek.h>

#include <gmock/gmock.h>

#include <cstring>
#include <sstream>

namespace
{

constexpr unsigned int FIRST_NUMBER = 5;
constexpr int POLLS = 3;

// An alert for each kind of action, and three that do not come through: unmapped, old, of an unknown class.
constexpr char TIMELINE[] = R"(,
"sequence": 10,
"timeline": [
  {"poll": 1, "events": [{"code": "diskFailed", "device": 0}, {"class": "physicalDisk", "code": 999, "device": 0}]},
  {"poll": 2, "events": [{"code": "virtualDiskDegraded", "device": 0}, {"code": "diskFailed", "device": 0, "sequence": 1},
                         {"class": 5, "code": 1, "device": 0}]},
  {"poll": 3, "events": [{"class": "controller", "code": 1, "device": 0}, {"class": "controller", "code": 2, "device": 0}]}
]})";

template <class Lines>
void append(Lines& lines, const std::string& line)
{
    std::strncat(lines.data(), (line + '\n').c_str(), lines.size() - std::strlen(lines.data()) - 1);
}

void describe(std::ostream& text, const void* object)
{
    for (const auto& [id, value] : valuesOf(object))
        text << ' ' << id << '=' << value;
}

// What the stand-ins hold for the plug-in.
std::string heldText()
{
    std::ostringstream text;
    text << morlan_live_sdo_objects() << " SDO objects, " << morlan_live_strings() << " strings, "
         << morlan_live_mutexes() << " mutexes, " << ral_live_lists() << " lists, "
         << morlan_running_threads() << " threads";
    return text.str();
}

} // namespace

StandardRun::StandardRun()
    : m_scenario(TempFolder::readFile(ZARNEK_SOURCE_DIR "/scenarios/small-server.json")),
      m_mapping(TempFolder::readFile(ZARNEK_SOURCE_DIR "/config/MarvelAlertMapping.ini"))
{
    m_scenario.replace(m_scenario.rfind('}'), std::string::npos, TIMELINE);
    m_mapping.replace(m_mapping.find("SequenceNumber="), std::string::npos, "SequenceNumber=3\n");
}

void StandardRun::start()
{
    ral_reset();
    ral_set_notification_sink(noteAlert, this);
    m_engine.writeMapping(m_mapping);
    m_engine.loadScenarioText(m_scenario);
    m_alerts.clear();
    m_engine.loadPlugin();
    CallChain::findLibraries();
}

void StandardRun::command(unsigned int number, Outcome& outcome)
{
    unsigned int input = FIRST_NUMBER;
    unsigned int total = 0;
    void* output = &total;
    Answer& answer = outcome.answers.at(outcome.answerCount++);
    answer.command = number;
    try {
        answer.status = m_engine.call(number, &input, &output);
    } catch (const std::bad_alloc&) {
        answer.thrown = Thrown::BadAlloc;
        answer.struck = outcome.struck[(outcome.strikes - 1) % Outcome::KEPT];
    } catch (...) {
        answer.thrown = Thrown::Other;
    }
    answer.value = output == &total ? total : reinterpret_cast<std::uintptr_t>(output);
}

void StandardRun::live(Outcome& outcome)
{
    command(ZARNEK_CMD_INITIALIZE, outcome);
    command(ZARNEK_CMD_DISCOVER, outcome);
    // The two threads never run at once, so that each run goes the same way.
    morlan_hold_threads(1);
    command(ZARNEK_CMD_START_MONITORING, outcome);
    for (int poll = 0; poll < POLLS; ++poll)
        Engine::poll();
    command(ZARNEK_CMD_STOP_MONITORING, outcome);
    command(ZARNEK_CMD_TERMINATE, outcome);
}

void StandardRun::noteAlert(void* run, const void* object)
{
    std::ostringstream text;
    describe(text, object);
    static_cast<StandardRun*>(run)->m_alerts += "alert" + text.str() + '\n';
}

std::string StandardRun::picture() const
{
    std::ostringstream text;
    ral_snapshot* const snapshot = ral_snapshot_create();
    for (unsigned int i = 0; i < ral_snapshot_count(snapshot); ++i) {
        text << "object" << i << " under " << ral_snapshot_parent(snapshot, i) << ", linked to";
        for (unsigned int link = 0; link < ral_snapshot_link_count(snapshot, i); ++link)
            text << ' ' << ral_snapshot_link(snapshot, i, link);
        text << ", inserted " << ral_snapshot_insertions(snapshot, i) << " times:";
        describe(text, ral_snapshot_object(snapshot, i));
        text << '\n';
    }
    ral_snapshot_destroy(snapshot);
    return text.str() + m_alerts + m_engine.readMapping();
}

std::string StandardRun::undisturbed()
{
    Outcome outcome{};
    start();
    live(outcome);
    m_engine.unloadPlugin();
    return picture();
}

void StandardRun::disturbed(IFaultPlan& plan, Outcome& outcome)
{
    if (liveUnder(plan, outcome))
        liveUndisturbed(outcome);
}

bool StandardRun::liveUnder(IFaultPlan& plan, Outcome& outcome)
{
    const std::string before = heldText();
    outcome.answerCount = 0;
    start();
    plan.begin(outcome);
    live(outcome);
    if (morlan_wait_threads(5000) != 0) {
        append(outcome.faults, "the event thread outlives command 25");
        return false;
    }
    m_engine.unloadPlugin();
    plan.end();
    if (m_engine.isLoaded())
        append(outcome.faults, "the plug-in cannot be unloaded");
    ral_reset();
    if (const std::string after = heldText(); after != before)
        append(outcome.faults, "the stand-ins hold " + after + "; before it were " + before);
    return true;
}

void StandardRun::liveUndisturbed(Outcome& outcome)
{
    if (const std::string next = undisturbed(); next != m_expected)
        append(outcome.faults, "the next run left another picture:\n" + next);
}

void StandardRun::expectUndisturbed(ForkedRun& fork)
{
    const TempFolder folder;
    fork([&](Outcome&) { folder.write("picture", undisturbed()); });
    m_expected = folder.read("picture");
    EXPECT_THAT(m_expected, testing::ContainsRegex("(alert[^\n]*\n){4}; Alert numbers"));
}

void StandardRun::expectOwnAnswer(const Answer& answer, std::uintptr_t mostControllers)
{
    SCOPED_TRACE("command " + std::to_string(answer.command));
    const bool initialises = answer.command == ZARNEK_CMD_INITIALIZE;
    EXPECT_LE(answer.status, initialises ? ZARNEK_STATUS_FAILED : ZARNEK_STATUS_DONE);
    const bool done = answer.thrown == Thrown::Nothing && answer.status == ZARNEK_STATUS_DONE;
    const unsigned int wanted = initialises && done ? SDO_VIL_NUMBER : 0;
    EXPECT_TRUE(answer.value == wanted ||
                (answer.command == ZARNEK_CMD_DISCOVER && answer.value <= mostControllers))
        << answer.value;
}
