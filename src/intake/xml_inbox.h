#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// An observer's subscription. Notices stop after end() or when this object is destroyed. May outlive the inbox.
class XMLInboxSubscription {
public:
    XMLInboxSubscription() = default;
    XMLInboxSubscription(XMLInboxSubscription&&) noexcept = default;
    XMLInboxSubscription& operator=(XMLInboxSubscription&& other) noexcept;
    ~XMLInboxSubscription() { end(); }

    /// No notice reaches the observer after this, not even one that is already being delivered.
    void end();

private:
    friend class XMLInbox;
    struct Observer {
        std::function<void()> notice;
        bool ended = false;
    };
    explicit XMLInboxSubscription(std::shared_ptr<Observer> observer) : observer_(std::move(observer)) {}

    std::shared_ptr<Observer> observer_;
};

/// Where projects arrive from outside the window: drags, shares and opened files are put here, and the workspace takes
/// them out and empties the property. Main thread only.
class XMLInbox {
public:
    XMLInbox() = default;
    XMLInbox(const XMLInbox&) = delete;
    XMLInbox& operator=(const XMLInbox&) = delete;
    ~XMLInbox() = default;

    /// The application's inbox, created at the first call.
    [[nodiscard]] static XMLInbox& shared();

    /// A .fcpxml file or .fcpxmld bundle to read.
    [[nodiscard]] const std::optional<std::string>& url() const { return url_; }
    void setURL(std::optional<std::string> location);

    /// The XML of a project that was dragged from Final Cut.
    [[nodiscard]] const std::optional<std::string>& xmlData() const { return xmlData_; }
    void setXMLData(std::optional<std::string> bytes);
    /// The bytes that must be there. They are gone from here; to set the property back tells the observers.
    [[nodiscard]] std::string takeXMLData();

    /// A message to show instead of loading.
    [[nodiscard]] const std::optional<std::string>& importError() const { return importError_; }
    void setImportError(std::optional<std::string> text);

    /// Calls `notice` after each assignment, even one that changes nothing, but not for earlier assignments. A notice
    /// may assign (which notifies at once), end subscriptions and observe.
    [[nodiscard]] XMLInboxSubscription observe(std::function<void()> notice);

private:
    void notify();

    std::optional<std::string> url_;
    std::optional<std::string> xmlData_;
    std::optional<std::string> importError_;
    std::vector<std::weak_ptr<XMLInboxSubscription::Observer>> observers_;
};

} // namespace corvane
