#include "zarnekctl/report/ReportPrinter.h"

#include "common/text.h"
#include "zarnekctl/monitor/AlertTable.h"
#include "zarnekctl/print/Census.h"
#include "zarnekctl/print/PropertyTable.h"
#include "zarnekctl/print/Units.h"
#include "zarnekctl/report/Markup.h"
#include "zarnekctl/report/StyleSheet.h"
#include <sdo.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <unistd.h>

namespace zarnekctl
{

namespace
{

// Ahead of the title: a page without script, frames, pictures or fonts from anywhere.
constexpr const char* HEAD =
    "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
    "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
    "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src "
    "'unsafe-inline'\">\n";
// While monitoring runs, an open page follows it.
constexpr const char* RELOAD = "<meta http-equiv=\"refresh\" content=\"15\">\n";

constexpr Style PAGE_STYLE{true, false};

const char* cssClass(Health health)
{
    switch (health) {
    case Health::Good:
        return "good";
    case Health::Warning:
        return "warning";
    case Health::Critical:
        return "critical";
    case Health::Unknown:
        break;
    }
    return "unknown";
}

// Where the object stands on the page.
std::string anchorOf(const Object& object)
{
    const auto digits = [&object](unsigned int property) {
        const auto number = object.number(property);
        return number ? std::to_string(*number) : std::string("none");
    };
    std::string anchor = "controller-" + digits(SSPROP_GLOBALCONTROLLERNUM_U32);
    if (object.kind() == ObjectKind::PhysicalDisk)
        anchor += "-slot-" + digits(SSPROP_SLOTNUM_U32);
    else if (object.kind() == ObjectKind::VirtualDisk)
        anchor += "-virtual-disk-" + digits(SSPROP_LOGICALDRIVENUM_U32);
    return anchor;
}

std::string words(const Object& object, unsigned int property)
{
    return cell(object, property, PAGE_STYLE);
}

// The words that there are, with a separator between; "-" stands for none.
std::string joined(const std::vector<std::string>& parts)
{
    std::string text;
    for (const std::string& part : parts)
        if (!part.empty() && part != "-")
            text += (text.empty() ? "" : PAGE_STYLE.separator()) + part;
    return text;
}

// The state, and the status where the state does not say that all is well.
std::string condition(const Object& object)
{
    const std::string state = words(object, SSPROP_STATE_U32);
    return healthOf(object) == Health::Good ? state : joined({state, words(object, SSPROP_STATUS_U32)});
}

Markup badge(const std::string& text, Health health)
{
    return element("span", std::string("badge ") + cssClass(health), text);
}

// A name before its value, in a list of such.
Markup fact(const std::string& name, const std::string& value, const char* health = "")
{
    return element("div", health, element("dt", "", name) + element("dd", "", value));
}

// In whole percent; the part is not above the whole.
std::string percentOf(std::uint64_t part, std::uint64_t whole)
{
    const double share = static_cast<double>(part) / static_cast<double>(whole);
    return std::to_string(std::lround(share * 100));
}

// How much of a whole is taken, with the words for it below.
Markup bar(const std::string& percent, const std::string& meaning)
{
    return element(
        "div", "use",
        element("span", "bar", Markup::element("span", {{"style", "width:" + percent + "%"}}, "")) +
            element("span", "soft", meaning));
}

Markup line(const char* name, const std::string& text)
{
    return text.empty() ? Markup() : element("div", name, text);
}

Markup condemned(const Object& object)
{
    return element("span", "state", condition(object));
}

// Of a disk: what virtual disks have left of it.
Markup diskUse(const Object& disk)
{
    const auto size = disk.number(SSPROP_SIZE_U64);
    const auto free = disk.number(SSPROP_FREERAIDDISKSPACE_U64);
    if (!size || *size == 0 || !free || *free > *size)
        return {};
    return bar(percentOf(*size - *free, *size), sizeText(*free) + " free");
}

Markup bayOf(const Object& disk)
{
    Markup content = element(
        "div", "head", element("span", "", "slot " + words(disk, SSPROP_SLOTNUM_U32)) + condemned(disk));
    content += line("size", words(disk, SSPROP_SIZE_U64));
    content += line("", joined({words(disk, SSPROP_MODEL_ASTRING)}));
    content += line("serial", joined({words(disk, SSPROP_SERIALNUM_ASTRING)}));
    content += line("soft", joined({words(disk, SSPROP_MEDIA_U32), words(disk, SSPROP_BUSPROTOCOL_U32),
                                    words(disk, SSPROP_NEGOTIATEDSPEED_U32)}));
    content += diskUse(disk);
    return Markup::element(
        "li", {{"class", std::string("bay ") + cssClass(healthOf(disk))}, {"id", anchorOf(disk)}}, content);
}

// Slots between two disks for which none was told.
Markup gap(std::uint64_t first, std::uint64_t last)
{
    const std::string slots = first == last
                                  ? "slot " + std::to_string(first)
                                  : "slots " + std::to_string(first) + "\u2013" + std::to_string(last);
    return element("li", "bay empty", element("span", "", slots) + element("span", "", "no disk told"));
}

std::vector<const Object*> objectsBelow(const System& system, std::size_t controller, ObjectKind kind)
{
    std::vector<const Object*> objects;
    for (const std::size_t index : system.below(static_cast<int>(controller), kind))
        objects.push_back(&system.nodes[index].object);
    const unsigned int number = numberProperty(kind);
    std::stable_sort(objects.begin(), objects.end(), [number](const Object* left, const Object* right) {
        return left->number(number) < right->number(number);
    });
    return objects;
}

Markup bays(const std::vector<const Object*>& disks)
{
    Markup content;
    std::optional<std::uint64_t> last;
    for (const Object* disk : disks) {
        const auto slot = disk->number(SSPROP_SLOTNUM_U32);
        if (last && slot && *slot > *last + 1)
            content += gap(*last + 1, *slot - 1);
        content += bayOf(*disk);
        last = slot;
    }
    return element("ol", "bays", content);
}

// The bytes of all disks together; nothing where one tells none, or the sum is out of range.
std::optional<std::uint64_t> sumOf(const std::vector<const Object*>& disks, unsigned int property)
{
    std::uint64_t sum = 0;
    for (const Object* disk : disks) {
        const auto size = disk->number(property);
        if (!size || *size > UINT64_MAX - sum)
            return std::nullopt;
        sum += *size;
    }
    return sum;
}

Markup driveOf(const Object& drive, std::optional<std::uint64_t> capacity)
{
    const std::string name = joined({words(drive, SSPROP_NAME_ASTRING)});
    const auto size = drive.number(SSPROP_SIZE_U64);
    const auto stripe = drive.number(SSPROP_STRIPEBLOCKSIZE_U32).value_or(0);
    Markup content = element("div", "head",
                             element("span", "", name.empty() ? drive.shortName() : name) + condemned(drive));
    content += line("size", joined({words(drive, SSPROP_SIZE_U64), words(drive, SSPROP_RAIDMODE_U32)}));
    content +=
        line("soft", joined({name.empty() ? "" : drive.shortName(), words(drive, SSPROP_WRITEPOLICY_U32),
                             stripe == 0 ? "" : "stripe " + stripeText(stripe)}));
    if (size && capacity && *capacity != 0 && *size <= *capacity) {
        const std::string percent = percentOf(*size, *capacity);
        content += bar(percent, percent + " % of the " + sizeText(*capacity) + " of all disks");
    }
    return Markup::element(
        "li", {{"class", std::string("drive ") + cssClass(healthOf(drive))}, {"id", anchorOf(drive)}},
        content);
}

Markup controllerCard(const System& system, std::size_t index)
{
    const Object& controller = system.nodes[index].object;
    const auto disks = objectsBelow(system, index, ObjectKind::PhysicalDisk);
    const auto drives = objectsBelow(system, index, ObjectKind::VirtualDisk);
    const auto capacity = sumOf(disks, SSPROP_SIZE_U64);
    const auto free = sumOf(disks, SSPROP_FREERAIDDISKSPACE_U64);
    Markup content = element("div", "title",
                             element("h2", "", controller.shortName()) +
                                 element("span", "", words(controller, SSPROP_NAME_ASTRING)) +
                                 badge(condition(controller), healthOf(controller)));
    Markup facts;
    for (const unsigned int id : controllerFacts(controller))
        facts += fact(propertyLabel(id), words(controller, id));
    content += element("dl", "facts", facts);
    if (!drives.empty()) {
        Markup list;
        for (const Object* drive : drives)
            list += driveOf(*drive, capacity);
        content +=
            element("h3", "", devkit::counted(drives.size(), "virtual disk")) + element("ul", "drives", list);
    }
    if (!disks.empty())
        content += element("h3", "",
                           joined({devkit::counted(disks.size(), "disk"), capacity ? sizeText(*capacity) : "",
                                   free ? sizeText(*free) + " free for virtual disks" : ""})) +
                   bays(disks);
    return Markup::element("section", {{"class", "controller"}, {"id", anchorOf(controller)}}, content);
}

Markup figures(const System& system, const Census& census)
{
    const auto isCritical = [](const Object* object) { return healthOf(*object) == Health::Critical; };
    const bool anyCritical = std::any_of(census.inAttention.begin(), census.inAttention.end(), isCritical);
    const auto figure = [&system](const char* name, ObjectKind kind) {
        return fact(name, std::to_string(system.count(kind)));
    };
    const std::size_t attention = census.inAttention.size();
    return element("dl", "figures",
                   figure("controllers", ObjectKind::Controller) + figure("disks", ObjectKind::PhysicalDisk) +
                       figure("virtual disks", ObjectKind::VirtualDisk) +
                       fact("need attention", std::to_string(attention),
                            attention == 0 ? ""
                            : anyCritical  ? "critical"
                                           : "warning") +
                       fact("status unknown", std::to_string(census.unknown)));
}

Markup attentionItem(const Object& object)
{
    const Markup name = Markup::element("a", {{"href", "#" + anchorOf(object)}}, object.fullName());
    const std::string what =
        joined({words(object, SSPROP_NAME_ASTRING), words(object, SSPROP_MODEL_ASTRING),
                words(object, SSPROP_SERIALNUM_ASTRING), words(object, SSPROP_SIZE_U64)});
    return element("li", "",
                   badge(condition(object), healthOf(object)) + name + element("span", "soft", what));
}

// What somebody has to look at, ahead of all else.
Markup attention(const System& system, const Census& census)
{
    Health worst = census.toldWhole && system.complete ? Health::Good : Health::Unknown;
    Markup list;
    for (const Health health : {Health::Critical, Health::Warning})
        for (const Object* object : census.inAttention)
            if (healthOf(*object) == health) {
                worst = std::max(worst, health);
                list += attentionItem(*object);
            }
    Markup remarks;
    const auto remark = [&remarks](const std::string& text) { remarks += element("p", "", text); };
    const std::size_t arrived = system.count(ObjectKind::Controller);
    if (!system.refusedCalls.empty())
        remark("The vendor library refused " + system.refusedCalls + "; this page is incomplete.");
    if (arrived < system.controllersFound)
        remark("Of " + devkit::counted(system.controllersFound, "controller") + " only " +
               std::to_string(arrived) + " arrived.");
    if (!system.complete && remarks.isEmpty())
        remark("The vendor library cannot be asked for its controllers.");
    if (!list.isEmpty())
        remarks += element("ul", "", list);
    else if (worst == Health::Good)
        remark("None reports trouble.");
    else
        remark("None that was told reports trouble.");
    const std::string title = list.isEmpty() ? "Condition" : "Needs attention";
    return element("section", std::string("attention ") + cssClass(worst),
                   element("h2", "", title) + remarks);
}

Markup loose(const System& system)
{
    Markup list;
    std::map<std::string, std::size_t> incomplete; // while monitoring runs, the same disk again and again
    for (const Node& node : system.nodes)
        if (node.incomplete)
            ++incomplete[looseText(node)];
        else if (isLoose(node))
            list += Markup::element("li", {{"id", anchorOf(node.object)}},
                                    joined({looseText(node), condition(node.object)}));
    for (const auto& [text, count] : incomplete)
        list += element("li", "", joined({text, count == 1 ? "" : devkit::counted(count, "time")}));
    return list.isEmpty()
               ? Markup()
               : element("section", "", element("h2", "", "Outside the tree") + element("ul", "", list));
}

// "2024-05-01 03:12:45 UTC".
Markup moment(WallClock::time_point time)
{
    const std::string stamp = timeStamp(time);
    return Markup::element("time", {{"datetime", stamp}},
                           stamp.substr(0, 10) + " " + stamp.substr(11, 8) + " UTC");
}

Markup timelineItem(const Alert& alert)
{
    const Health severity = severityOf(alert.number);
    const std::string numbers = joined({"alert " + std::to_string(alert.number),
                                        alert.sequence ? "sequence " + std::to_string(*alert.sequence) : ""});
    return element("li", cssClass(severity),
                   moment(alert.time) + badge(severityWord(severity), severity) +
                       element("div", "",
                               element("strong", "", alert.meaning()) + ": " + alert.objectName() + " " +
                                   element("span", "soft", numbers)));
}

Markup timeline(const MonitorStory& story)
{
    std::string state = devkit::counted(story.polls, "poll") + ", " +
                        devkit::counted(story.alertCount(), "alert") +
                        (story.running ? "; monitoring goes on" : "; monitoring has stopped");
    if (story.refusedCalls != 0)
        state += "; in these polls the vendor library refused " + devkit::counted(story.refusedCalls, "call");
    Markup list;
    std::for_each(story.latest.rbegin(), story.latest.rend(),
                  [&list](const Alert& alert) { list += timelineItem(alert); });
    Markup content = element("h2", "", "Alerts") + element("p", "soft", state + ".");
    if (!list.isEmpty())
        content += element("ol", "timeline", list);
    if (story.alertCount() > story.latest.size())
        content += element("p", "soft",
                           devkit::counted(story.alertCount() - story.latest.size(), "earlier alert") +
                               " not shown.");
    return element("section", "", content);
}

std::string hostName()
{
    std::array<char, 256> name{};
    gethostname(name.data(), name.size() - 1);
    return name.data();
}

} // namespace

void ReportPrinter::print(const System& system, std::ostream& out) const
{
    const Census census = censusOf(system);
    Markup body = element("header", "",
                          element("h1", "", "Storage report") +
                              element("p", "made",
                                      Markup(joined({hostName(), system.source}) + PAGE_STYLE.separator()) +
                                          moment(WallClock::now())));
    body += figures(system, census);
    body += attention(system, census);
    if (m_story != nullptr)
        body += timeline(*m_story);
    for (const std::size_t controller : system.below(-1, ObjectKind::Controller))
        body += controllerCard(system, controller);
    body += loose(system);
    body += element("footer", "", std::string("zarnekctl ") + ZARNEKCTL_VERSION);

    out << HEAD << (m_story != nullptr && m_story->running ? RELOAD : "")
        << element("title", "", "Storage report: " + joined({hostName(), system.source})).html()
        << "\n<style>\n"
        << STYLE_SHEET << "</style>\n</head>\n"
        << element("body", "", body).html() << "\n</html>\n";
}

} // namespace zarnekctl
