#include "workspace/settings_change.h"

#include "engine/setting_fields.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

namespace corvane {

namespace {

/// A set or map, whose entries are compared one by one.
template <class Value>
concept Entries = requires { typename Value::key_type; };

template <class Value>
const Value& keyOf(const Value& entry)
{
    return entry;
}

template <class Key, class Value>
const Key& keyOf(const std::pair<const Key, Value>& entry)
{
    return entry.first;
}

template <class Value>
void keepDifference(const Value& value, const Value& other, Value& kept)
{
    if (value != other)
        kept = value;
}

template <Entries Value>
void keepDifference(const Value& value, const Value& other, Value& kept)
{
    std::ranges::set_difference(value, other, std::inserter(kept, kept.end()));
}

template <class Value>
void putValue(Value& value, const Value& /*from*/, const Value& to, std::size_t /*at*/)
{
    value = to;
}

template <Entries Value>
void putValue(Value& value, const Value& from, const Value& to, std::size_t /*at*/)
{
    for (const Value* side : {&from, &to}) {
        for (const auto& entry : *side)
            value.erase(keyOf(entry));
    }
    value.insert(to.begin(), to.end());
}

void putValue(
    std::vector<SectionDraft>& sections, const std::vector<SectionDraft>& from, const std::vector<SectionDraft>& to,
    std::size_t at)
{
    std::set<Identifier> changed;
    for (const auto* side : {&from, &to})
        std::ranges::transform(*side, std::inserter(changed, changed.end()), &SectionDraft::id);
    std::erase_if(sections, [&](const SectionDraft& section) { return changed.contains(section.id); });
    sections.insert(
        sections.begin() + static_cast<std::ptrdiff_t>(std::min(at, sections.size())), to.begin(), to.end());
}

std::size_t bytesOf(double /*value*/)
{
    return 0;
}

std::size_t bytesOf(const std::string& text)
{
    return text.size();
}

std::size_t bytesOf(const SectionDraft& section)
{
    return sizeof section + section.name.size() + section.camera.size() + section.start.size() + section.end.size();
}

template <class Key, class Value>
std::size_t bytesOf(const std::pair<const Key, Value>& entry)
{
    return sizeof entry + bytesOf(entry.first);
}

template <std::ranges::range List>
std::size_t bytesOf(const List& list)
{
    constexpr std::size_t node = 48; // what a tree or an allocation needs besides
    std::size_t bytes = 0;
    for (const auto& each : list)
        bytes += node + bytesOf(each);
    return bytes;
}

/// What people call the fields, in the order of their list.
constexpr std::pair<std::string_view, std::string_view> settingNames[] = {
    {"mainShare", "Main Share"},
    {"averageShot", "Average Shot"},
    {"mainMinimum", "Main Camera Minimum"},
    {"mainMaximum", "Main Camera Maximum"},
    {"otherMinimum", "Other Cameras Minimum"},
    {"otherMaximum", "Other Cameras Maximum"},
    {"mainCamera", "Main Camera"},
    {"otherCameras", "Additional Cameras"},
    {"frequencies", "Frequency"},
    {"returnTimes", "Wait"},
    {"audio", "Continuous Audio"},
    {"doubleMain", "Doubled Holds"},
    {"openingEnabled", "Opening"},
    {"openingCamera", "Opening Camera"},
    {"openingSeconds", "Opening Length"},
    {"closingEnabled", "Closing"},
    {"closingCamera", "Closing Camera"},
    {"closingSeconds", "Closing Length"},
    {"sections", "Fixed Section"},
};

} // namespace

SettingsChange::SettingsChange(const EditSettings& before, const EditSettings& after)
{
    forEachSetting([&](const auto& field) {
        keepDifference(before.*field.member, after.*field.member, before_.*field.member);
        keepDifference(after.*field.member, before.*field.member, after_.*field.member);
    });
    const auto [first, firstAfter] = std::ranges::mismatch(before.sections, after.sections);
    auto last = before.sections.end();
    auto lastAfter = after.sections.end();
    while (last != first && lastAfter != firstAfter && *std::prev(last) == *std::prev(lastAfter)) {
        --last;
        --lastAfter;
    }
    sectionsAt_ = static_cast<std::size_t>(first - before.sections.begin());
    before_.sections.assign(first, last);
    after_.sections.assign(firstAfter, lastAfter);
}

void SettingsChange::put(EditSettings& settings, Side side) const
{
    forEachSetting([&](const auto& field) {
        if (from(side).*field.member != to(side).*field.member)
            putValue(settings.*field.member, from(side).*field.member, to(side).*field.member, sectionsAt_);
    });
}

bool SettingsChange::isPut(const EditSettings& settings, Side side) const
{
    bool isPut = true;
    forEachSetting([&](const auto& field) {
        if (!isPut || from(side).*field.member == to(side).*field.member)
            return;
        auto value = settings.*field.member;
        putValue(value, from(side).*field.member, to(side).*field.member, sectionsAt_);
        isPut = value == settings.*field.member;
    });
    return isPut;
}

std::size_t SettingsChange::bytes() const
{
    std::size_t bytes = sizeof *this;
    forEachSetting([&](const auto& field) { bytes += bytesOf(before_.*field.member) + bytesOf(after_.*field.member); });
    return bytes;
}

std::string_view changedSetting(const EditSettings& before, const EditSettings& after)
{
    std::string_view changed;
    forEachSetting([&](const auto& field) {
        if (changed.empty() && before.*field.member != after.*field.member)
            changed = field.name;
    });
    if (changed.empty())
        return changed;
    const auto found = std::ranges::find(settingNames, changed, &std::pair<std::string_view, std::string_view>::first);
    return found == std::end(settingNames) ? "Setting" : found->second;
}

} // namespace corvane
