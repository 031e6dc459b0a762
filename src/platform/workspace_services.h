#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// Why the system did not do what it was asked.
struct ServiceError {
    std::string domain;
    int code = 0;
    std::string description; ///< a sentence for the user
    bool operator==(const ServiceError&) const = default;
};

/// What the desktop does with applications and files.
class WorkspaceServices {
public:
    using Report = std::function<void(const std::optional<ServiceError>&)>;

    WorkspaceServices() = default;
    WorkspaceServices(const WorkspaceServices&) = delete;
    WorkspaceServices& operator=(const WorkspaceServices&) = delete;
    virtual ~WorkspaceServices() = default;

    /// Where the application with this bundle identifier is; none when there is none.
    [[nodiscard]] virtual std::optional<std::string> application(const std::string& bundleIdentifier) const = 0;
    /// Opens the files with the application and brings it to the front. Reports once, on a thread of its choosing.
    virtual void open(const std::vector<std::string>& files, const std::string& application, Report report) = 0;
};

/// Bundle identifiers belong to another system: here no application has one, so nothing is ever found.
class NoBundledApplications : public WorkspaceServices {
public:
    [[nodiscard]] std::optional<std::string> application(const std::string&) const override { return std::nullopt; }
    void open(const std::vector<std::string>& files, const std::string& application, Report report) override;
};

/// Runs a piece of work on the interface thread, soon.
using MainThread = std::function<void(std::function<void()>)>;

} // namespace corvane
