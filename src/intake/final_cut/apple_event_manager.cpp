#include "intake/final_cut/apple_event_manager.h"

#include <exception>
#include <optional>
#include <span>

namespace corvane {

namespace {

AppleEventDescriptor numberOf(AppleEventError error)
{
    return AppleEventDescriptor::integer(static_cast<std::int32_t>(error));
}

/// None unless all of them are files.
std::optional<std::vector<std::string>> pathsOf(std::span<const AppleEventDescriptor> files)
{
    std::vector<std::string> paths;
    for (const AppleEventDescriptor& file : files) {
        auto path = file.asFileURL();
        if (!path)
            return std::nullopt;
        paths.push_back(*std::move(path));
    }
    return paths;
}

} // namespace

const AppleEventDescriptor* AppleEvent::parameter(FourCharacterCode key) const
{
    const auto found = parameters.find(key);
    return found == parameters.end() ? nullptr : &found->second;
}

void AppleEventReply::fail(AppleEventError error, std::string_view text)
{
    parameters.insert_or_assign("errn", numberOf(error));
    parameters.insert_or_assign("errs", AppleEventDescriptor::text(text));
}

void AppleEventManager::setHandler(FourCharacterCode eventClass, FourCharacterCode eventId, Handler handler)
{
    handlers_.insert_or_assign({eventClass, eventId}, std::move(handler));
}

AppleEventReply AppleEventManager::dispatch(const AppleEvent& event) const
{
    AppleEventReply reply;
    const auto found = handlers_.find({event.eventClass, event.eventId});
    if (found == handlers_.end() || !found->second) {
        reply.parameters.insert_or_assign("errn", numberOf(AppleEventError::notHandled));
        return reply;
    }
    const Handler handler = found->second; // a copy, because the handler may replace itself
    try {
        handler(event, reply);
    } catch (const std::exception& failure) { // no exception may reach the system's event loop
        reply = {};
        reply.fail(AppleEventError::eventFailed, failure.what());
    }
    return reply;
}

void installOpenDocuments(AppleEventManager& manager, std::function<void(const std::vector<std::string>&)> open)
{
    manager.setHandler("aevt", "odoc", [open = std::move(open)](const AppleEvent& event, AppleEventReply& reply) {
        const AppleEventDescriptor* files = event.parameter("----");
        if (files == nullptr)
            return reply.fail(AppleEventError::descriptorNotFound, "No files were named.");
        const bool several = files->shape() == AppleEventDescriptor::Shape::list;
        const auto paths = pathsOf(several ? files->items() : std::span(files, 1));
        if (!paths)
            return reply.fail(AppleEventError::wrongDataType, "Only files can be opened.");
        open(*paths);
    });
}

} // namespace corvane
