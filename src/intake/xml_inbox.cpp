#include "intake/xml_inbox.h"

#include <utility>

namespace corvane {

XMLInboxSubscription& XMLInboxSubscription::operator=(XMLInboxSubscription&& other) noexcept
{
    if (this != &other) {
        end();
        observer_ = std::move(other.observer_);
    }
    return *this;
}

void XMLInboxSubscription::end()
{
    if (!observer_)
        return;
    observer_->ended = true; // a running notice keeps the observer alive
    observer_.reset();
}

XMLInbox& XMLInbox::shared()
{
    static XMLInbox inbox;
    return inbox;
}

void XMLInbox::setURL(std::optional<std::string> location)
{
    url_ = std::move(location);
    notify();
}

void XMLInbox::setXMLData(std::optional<std::string> bytes)
{
    xmlData_ = std::move(bytes);
    notify();
}

std::string XMLInbox::takeXMLData()
{
    return std::exchange(xmlData_, std::nullopt).value();
}

void XMLInbox::setImportError(std::optional<std::string> text)
{
    importError_ = std::move(text);
    notify();
}

XMLInboxSubscription XMLInbox::observe(std::function<void()> notice)
{
    std::erase_if(observers_, [](const auto& observer) { return observer.expired(); });
    auto observer = std::make_shared<XMLInboxSubscription::Observer>();
    observer->notice = std::move(notice);
    observers_.push_back(observer);
    return XMLInboxSubscription(std::move(observer));
}

void XMLInbox::notify()
{
    const auto observers = observers_; // notices may change the list
    for (const auto& weak : observers) {
        const auto observer = weak.lock();
        if (observer && !observer->ended)
            observer->notice();
    }
}

} // namespace corvane
