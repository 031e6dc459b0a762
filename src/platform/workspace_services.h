#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// Why the system could not carry out a request.
struct ServiceError {
    std::string domain;
    int code = 0;
    std::string description; ///< a sentence for the user
    bool operator==(const ServiceError&) const = default;
};

/// The desktop's services for applications and files.
class WorkspaceServices {
public:
    using Report = std::function<void(const std::optional<ServiceError>&)>;

    WorkspaceServices() = default;
    WorkspaceServices(const WorkspaceServices&) = delete;
    WorkspaceServices& operator=(const WorkspaceServices&) = delete;
    virtual ~WorkspaceServices() = default;

    /// The location of the application with this bundle identifier; none if it is not installed.
    [[nodiscard]] virtual std::optional<std::string> application(const std::string& bundleIdentifier) const = 0;
    /// Opens the files with the application and brings it to the front. Calls `report` once, on any thread.
    virtual void open(const std::vector<std::string>& files, const std::string& application, Report report) = 0;
};

/// Bundle identifiers exist only on macOS, so no application is ever found here.
class NoBundledApplications : public WorkspaceServices {
public:
    [[nodiscard]] std::optional<std::string> application(const std::string&) const override { return std::nullopt; }
    void open(const std::vector<std::string>& files, const std::string& application, Report report) override;
};

/// Schedules a function to run on the interface thread.
using MainThread = std::function<void(std::function<void()>)>;

} // namespace corvane
