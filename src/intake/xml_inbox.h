#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// Keeps an observer's notices coming; they end with end() or with this object, whichever is first. May outlive the
/// inbox.
class XMLInboxSubscription {
public:
    XMLInboxSubscription() = default;
    XMLInboxSubscription(XMLInboxSubscription&&) noexcept = default;
    XMLInboxSubscription& operator=(XMLInboxSubscription&& other) noexcept;
    ~XMLInboxSubscription() { end(); }

    /// No notice comes after this, not even the rest of one that is just being given.
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

/// Where projects arrive from outside the window: drags, shares and opened files are put here, the workspace takes
/// them out and sets each property back to empty. Main thread only.
class XMLInbox {
public:
    XMLInbox() = default;
    XMLInbox(const XMLInbox&) = delete;
    XMLInbox& operator=(const XMLInbox&) = delete;
    ~XMLInbox() = default;

    /// The application's own, made when it is first asked for.
    [[nodiscard]] static XMLInbox& shared();

    /// A .fcpxml file or .fcpxmld bundle to read.
    [[nodiscard]] const std::optional<std::string>& url() const { return url_; }
    void setURL(std::optional<std::string> location);

    /// The XML of a project that was dragged from Final Cut.
    [[nodiscard]] const std::optional<std::string>& xmlData() const { return xmlData_; }
    void setXMLData(std::optional<std::string> bytes);

    /// A message to show instead of loading.
    [[nodiscard]] const std::optional<std::string>& importError() const { return importError_; }
    void setImportError(std::optional<std::string> text);

    /// Calls `notice` after each assignment, also one that changes nothing; what arrived earlier is not told again.
    /// Inside a notice everything is allowed: to assign (which notifies at once), to end subscriptions, to observe.
    [[nodiscard]] XMLInboxSubscription observe(std::function<void()> notice);

private:
    void notify();

    std::optional<std::string> url_;
    std::optional<std::string> xmlData_;
    std::optional<std::string> importError_;
    std::vector<std::weak_ptr<XMLInboxSubscription::Observer>> observers_;
};

} // namespace corvane
