#pragma once

#include "base/observers.h"

#include <optional>
#include <string>
#include <utility>

namespace corvane {

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
    /// Moves the XML, which must exist, out of the inbox. Emptying the property afterwards notifies the observers.
    [[nodiscard]] std::string takeXMLData();

    /// A message to show instead of loading.
    [[nodiscard]] const std::optional<std::string>& importError() const { return importError_; }
    void setImportError(std::optional<std::string> text);

    /// Calls `notice` after each assignment, even one that changes nothing, but not for earlier assignments. A notice
    /// may assign (which notifies at once), end subscriptions and observe.
    [[nodiscard]] Subscription observe(Observers<>::Notice notice) { return observers_.observe(std::move(notice)); }

private:
    std::optional<std::string> url_;
    std::optional<std::string> xmlData_;
    std::optional<std::string> importError_;
    Observers<> observers_;
};

} // namespace corvane
