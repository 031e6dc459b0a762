#include "intake/final_cut/pasteboard_rule.h"

#include "intake/project_file.h"

#include <algorithm>

namespace corvane {

namespace {

constexpr int newestMinorVersion = 14;
constexpr int oldestMinorVersion = 9;

bool contains(const std::vector<std::string>& types, const std::string& type)
{
    return std::ranges::find(types, type) != types.end();
}

} // namespace

const std::vector<std::string>& finalCutXMLTypes()
{
    static const std::vector<std::string> types = [] {
        const std::string unversioned = "com.apple.finalcutpro.xml";
        std::vector<std::string> all;
        for (int minor = newestMinorVersion; minor >= oldestMinorVersion; --minor)
            all.push_back(unversioned + ".v1-" + std::to_string(minor));
        all.push_back(unversioned);
        return all;
    }();
    return types;
}

const std::vector<std::string>& registeredPasteboardTypes()
{
    static const std::vector<std::string> types = [] {
        std::vector<std::string> all = finalCutXMLTypes();
        all.emplace_back(fileURLPasteboardType);
        return all;
    }();
    return types;
}

std::optional<std::string> xmlDataFromPasteboard(const Pasteboard& pasteboard)
{
    const std::vector<std::string> offered = pasteboard.types();
    for (const std::string& type : finalCutXMLTypes()) {
        if (!contains(offered, type))
            continue;
        auto data = pasteboard.data(type);
        if (data && !data->empty())
            return data;
    }
    return std::nullopt;
}

bool offersProject(const Pasteboard& pasteboard)
{
    const std::vector<std::string> offered = pasteboard.types();
    return std::ranges::any_of(
        registeredPasteboardTypes(), [&](const std::string& type) { return contains(offered, type); });
}

namespace {

bool deliver(const Pasteboard& pasteboard, XMLInbox& inbox)
{
    if (auto data = xmlDataFromPasteboard(pasteboard)) {
        inbox.setXMLData(std::move(data));
        return true;
    }
    const std::vector<std::string> files = pasteboard.filePaths();
    if (files.size() == 1 && projectFileKind(files.front())) {
        inbox.setURL(files.front());
        return true;
    }
    return false;
}

} // namespace

bool performDrag(const Pasteboard& pasteboard, XMLInbox& inbox)
{
    try {
        if (deliver(pasteboard, inbox))
            return true;
    } catch (const NoPasteboardAnswer&) {
        // Treated like a source without data.
    }
    inbox.setImportError("Drop one project from Final Cut’s browser, or one .fcpxml file or .fcpxmld bundle.");
    return false;
}

} // namespace corvane
